#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace morvane::screens {

enum class Command : std::uint8_t { about, checkForUpdates, settings, scanNow, review };

// One command of the program's menus. On a Mac the menu bar is made from this table, elsewhere a
// menu bar in the window, with Control for Command.
struct CommandWords {
    Command value;
    std::string_view menu;
    std::string_view id;
    std::string_view title;
    std::string_view key;  // empty: none
};
inline constexpr std::array commands{
    CommandWords{Command::about, "Morvane", "about", "About Morvane", ""},
    CommandWords{Command::checkForUpdates, "Morvane", "checkForUpdates", "Check for Updates…", ""},
    CommandWords{Command::settings, "Morvane", "settings", "Settings…", "Command+,"},
    CommandWords{Command::scanNow, "Sweep", "scanNow", "Scan Now", "Command+R"},
    CommandWords{Command::review, "Sweep", "review", "Review & Sweep", "Command+Shift+S"},
};

}  // namespace morvane::screens
