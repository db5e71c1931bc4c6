#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ui/screens/shapes.h"

namespace morvane::screens {

// What a press asks for: the keys that lead to the control, list places left out, joined by dots;
// the `id` (or place) of the innermost list entry; the value of a choice, a switch, a text.
struct PressRequest {
    std::string control;
    std::optional<std::string> row;
    std::variant<std::monostate, bool, std::int64_t, std::string> value;
};

// A control that a press may use, as it was found on a screen.
struct Control {
    enum class Kind : std::uint8_t { plain, toggle, choice, text };
    Kind kind = Kind::plain;
    bool enabled = true;
    std::int64_t optionCount = 0;
};
// Or why there is none: one sentence.
using ControlOrRefusal = std::variant<Control, std::string>;

// The keys of "groups.rows.open", apart.
[[nodiscard]] std::vector<std::string_view> keysOf(std::string_view control);

namespace detail {

using Keys = const std::string_view*;
enum class Outcome : std::uint8_t { found, unknownKey, unknownRow, notOnView };
constexpr int noSuchKey = -1;

// How many lists the keys pass below a value of this type; `noSuchKey` where they lead nowhere.
template <class T>
int listsBelow(Keys key, Keys end);

template <class... T>
int listsBelowAny(const std::variant<T...>* /*type*/, Keys key, Keys end) {
    int most = noSuchKey;
    ((most = std::max(most, listsBelow<T>(key, end))), ...);
    return most;
}

template <class T>
int listsBelow(Keys key, Keys end) {
    if constexpr (OptionalOf<T>::value) {
        return listsBelow<typename OptionalOf<T>::Value>(key, end);
    } else if constexpr (ListOf<T>::value) {
        const int below = listsBelow<typename ListOf<T>::Element>(key, end);
        return below == noSuchKey ? noSuchKey : below + 1;
    } else if constexpr (VariantOf<T>::value) {
        return listsBelowAny(static_cast<const T*>(nullptr), key, end);
    } else if constexpr (ScreenRecord<T>) {
        if (key == end) return 0;
        int found = noSuchKey;
        std::apply(
            [&](const auto&... each) {
                ((each.name == *key
                      ? void(found = listsBelow<
                                 std::remove_cvref_t<decltype(std::declval<T>().*(each.member))>>(
                                 key + 1, end))
                      : void()),
                 ...);
            },
            T::fields());
        return found;
    } else {
        return key == end ? 0 : noSuchKey;
    }
}

// An entry without an `id` goes by its place.
template <class T>
bool isRow(const T& entry, std::int64_t place, const std::string& row) {
    if constexpr (requires { entry.id; }) {
        if constexpr (std::is_integral_v<decltype(entry.id)>) {
            return std::to_string(entry.id) == row;
        } else {
            return entry.id == row;
        }
    } else {
        return std::to_string(place) == row;
    }
}

template <class T>
Control controlOf(const T& value) {
    if constexpr (std::is_same_v<T, Switch>) {
        return {.kind = Control::Kind::toggle, .enabled = value.enabled};
    } else if constexpr (std::is_same_v<T, Choice>) {
        return {.kind = Control::Kind::choice,
                .optionCount = static_cast<std::int64_t>(value.options.size())};
    } else if constexpr (requires { value.enabled; }) {
        return {.enabled = value.enabled};
    } else {
        return {};
    }
}

template <class T>
Outcome find(const T& value, Keys key, Keys end, const std::optional<std::string>& row,
             Control& control) {
    if constexpr (OptionalOf<T>::value) {
        if (!value) return Outcome::notOnView;
        return find(*value, key, end, row, control);
    } else if constexpr (VariantOf<T>::value) {
        return std::visit([&](const auto& each) { return find(each, key, end, row, control); },
                          value);
    } else if constexpr (ListOf<T>::value) {
        const bool isInnermost = listsBelow<typename ListOf<T>::Element>(key, end) == 0;
        std::int64_t place = 0;
        Outcome outcome = Outcome::unknownRow;
        for (const auto& entry : value) {
            if (isInnermost && !(row && isRow(entry, place++, *row))) continue;
            outcome = find(entry, key, end, row, control);
            if (outcome != Outcome::unknownRow) return outcome;
        }
        return outcome;
    } else if constexpr (ScreenRecord<T>) {
        if (key == end) {
            control = controlOf(value);
            return Outcome::found;
        }
        Outcome outcome = Outcome::unknownKey;
        forEachField(value, [&](std::string_view name, const auto& each) {
            if (name == *key) outcome = find(each, key + 1, end, row, control);
        });
        return outcome;
    } else {
        return key == end ? Outcome::found : Outcome::unknownKey;
    }
}

ControlOrRefusal toldOutcome(Outcome outcome, const Control& control, const PressRequest& request);
std::optional<std::string> rowRefusal(int lists, const PressRequest& request);

}  // namespace detail

// The control that `request` names on `screen`.
template <class T>
[[nodiscard]] ControlOrRefusal findControl(const T& screen, const PressRequest& request) {
    const std::vector<std::string_view> keys = keysOf(request.control);
    const detail::Keys begin = keys.data();
    const detail::Keys end = begin + keys.size();
    const int lists = detail::listsBelow<T>(begin, end);
    if (auto refusal = detail::rowRefusal(lists, request)) return *std::move(refusal);
    Control control;
    const detail::Outcome outcome = detail::find(screen, begin, end, request.row, control);
    return detail::toldOutcome(outcome, control, request);
}

}  // namespace morvane::screens
