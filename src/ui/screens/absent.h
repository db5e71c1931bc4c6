#pragma once

#include <algorithm>
#include <array>

#include "model/vocabulary.h"

namespace morvane::screens {

// The screens that are still to come. They have no row in the sidebar, and a selection of one shows
// the Overview.
inline constexpr std::array absentScreens{SidebarItem::developer, SidebarItem::uninstaller,
                                          SidebarItem::storage, SidebarItem::large};

[[nodiscard]] constexpr bool isAbsent(SidebarItem item) {
    return std::find(absentScreens.begin(), absentScreens.end(), item) != absentScreens.end();
}

}  // namespace morvane::screens
