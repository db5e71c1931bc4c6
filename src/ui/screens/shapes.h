#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ui/screens/fields.h"

namespace morvane::screens {

enum class ButtonKind : std::uint8_t { prominent, bordered, plain, link, destructive };

// `label` is the accessible name too, also of a button that shows a symbol alone. `key` is
// "Return" for the default action, "Escape" for a cancelling one, else as "Command+Shift+S".
struct Button {
    std::string label;
    std::optional<std::string> symbol;
    bool enabled = true;
    ButtonKind kind = ButtonKind::bordered;
    std::optional<std::string> key;
    bool busy = false;
    std::optional<std::string> tooltip;

    bool operator==(const Button&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("label", &Button::label),     field("symbol", &Button::symbol),
                          field("enabled", &Button::enabled), field("kind", &Button::kind),
                          field("key", &Button::key),         field("busy", &Button::busy),
                          field("tooltip", &Button::tooltip)};
    }
};

struct Switch {
    std::string label;
    bool on = false;
    bool enabled = true;

    bool operator==(const Switch&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("label", &Switch::label), field("on", &Switch::on),
                          field("enabled", &Switch::enabled)};
    }
};

// One of several options; none is selected where the value matches no option.
struct Choice {
    std::optional<std::string> label;
    std::vector<std::string> options;
    std::optional<std::int64_t> selected;

    bool operator==(const Choice&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("label", &Choice::label), field("options", &Choice::options),
                          field("selected", &Choice::selected)};
    }
};

// `fill` and `ink` are names of the palette.
struct Badge {
    std::string label;
    std::string fill;
    std::string ink;

    bool operator==(const Badge&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("label", &Badge::label), field("fill", &Badge::fill),
                          field("ink", &Badge::ink)};
    }
};

// The bar under a list of what can be chosen.
struct Footer {
    std::string size;
    std::string count;
    std::string note;
    std::vector<Button> actions;

    bool operator==(const Footer&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("size", &Footer::size), field("count", &Footer::count),
                          field("note", &Footer::note), field("actions", &Footer::actions)};
    }
};

}  // namespace morvane::screens

namespace morvane {
template <>
inline constexpr std::array caseNames<screens::ButtonKind> =
    std::to_array<std::string_view>({"prominent", "bordered", "plain", "link", "destructive"});
}  // namespace morvane
