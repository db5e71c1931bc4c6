#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "ui/overview/overview_screen.h"
#include "ui/review/review_screen.h"
#include "ui/screens/screen.h"
#include "ui/settings/settings_screen.h"
#include "ui/shell/shell_screen.h"
#include "ui/shell/sidebar_screen.h"

namespace morvane::screens {

// Every screen of the program, over one store. Main thread.
class Screens {
public:
    explicit Screens(ScreenNeeds needs);

    ShellScreen shell;
    SidebarScreen sidebar;
    OverviewScreen overview;
    ReviewScreen sweepReview;
    SettingsScreen settings;

    // The screen of that name, or none.
    [[nodiscard]] Screen* named(std::string_view name);
    // The names there are, parted by ", ".
    [[nodiscard]] std::string names();

    // What coming to the front does: fresh figures, and fresh permissions where they are on view.
    void becameActive();

private:
    [[nodiscard]] std::array<Screen*, 5> all();

    AppState& state_;
};

}  // namespace morvane::screens
