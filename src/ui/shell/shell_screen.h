#pragma once

#include <string>
#include <vector>

#include "ui/screens/screen.h"

namespace morvane::screens {

struct MenuItem {
    std::string id;
    std::string label;
    std::optional<std::string> key;
    bool enabled = true;

    bool operator==(const MenuItem&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &MenuItem::id), field("label", &MenuItem::label),
                          field("key", &MenuItem::key), field("enabled", &MenuItem::enabled)};
    }
};

struct Menu {
    std::string title;
    std::vector<MenuItem> items;

    bool operator==(const Menu&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("title", &Menu::title), field("items", &Menu::items)};
    }
};

struct MenuBarExtra {
    bool visible = false;
    std::string label;

    bool operator==(const MenuBarExtra&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("visible", &MenuBarExtra::visible),
                          field("label", &MenuBarExtra::label)};
    }
};

struct ShellContent {
    std::string content;  // "onboarding" or "main"
    std::string windowTitle;
    std::vector<Menu> menus;
    MenuBarExtra menuBarExtra;

    bool operator==(const ShellContent&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("content", &ShellContent::content),
                          field("windowTitle", &ShellContent::windowTitle),
                          field("menus", &ShellContent::menus),
                          field("menuBarExtra", &ShellContent::menuBarExtra)};
    }
};

// The frame of the program: what its window shows, its commands, its place in the menu bar.
class ShellScreen final : public ScreenOf<ShellContent> {
public:
    explicit ShellScreen(ScreenNeeds needs);

    [[nodiscard]] std::string_view name() const override { return "shell"; }
    [[nodiscard]] ShellContent content() const override;
    // Measures the disk, the first time.
    void appear() override;

private:
    void choose(const std::string& command);

    ScreenNeeds needs_;
    bool hasMeasured_ = false;
};

}  // namespace morvane::screens
