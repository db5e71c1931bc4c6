#include "ui/screens/views.h"

#include <algorithm>

#include "ui/screens/absent.h"

namespace morvane::screens {

SidebarItem itemOnView(const AppState& state) {
    const SidebarItem item = state.selection->value_or(SidebarItem::overview);
    return isAbsent(item) ? SidebarItem::overview : item;
}

double fractionOf(std::int64_t part, std::int64_t whole) {
    if (whole < 1) return 0;
    return std::clamp(static_cast<double>(part) / static_cast<double>(whole), 0.0, 1.0);
}

Badge badgeOf(Safety safety) {
    switch (safety) {
        case Safety::safe:
            return {.label = "Safe to sweep", .fill = "safeFill", .ink = "safeInk"};
        case Safety::regenerates:
            return {.label = "Will regenerate", .fill = "regenFill", .ink = "regenInk"};
        case Safety::review:
            break;
    }
    return {.label = "Review first", .fill = "reviewFill", .ink = "reviewInk"};
}

}  // namespace morvane::screens
