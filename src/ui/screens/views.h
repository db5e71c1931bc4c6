#pragma once

#include <cstdint>

#include "core/app_state.h"
#include "ui/screens/shapes.h"

namespace morvane::screens {

// The screen that the window shows: the selected one, the Overview without a selection.
[[nodiscard]] SidebarItem itemOnView(const AppState& state);

[[nodiscard]] inline double gigabytes(std::int64_t bytes) {
    return static_cast<double>(bytes) / 1e9;
}
[[nodiscard]] inline double megabytes(std::int64_t bytes) {
    return static_cast<double>(bytes) / 1e6;
}
// Between 0 and 1, whatever the figures are; 0 of nothing.
[[nodiscard]] double fractionOf(std::int64_t part, std::int64_t whole);

[[nodiscard]] Badge badgeOf(Safety safety);

// Whether photos, documents, backups and the rest can be seen.
[[nodiscard]] inline bool hasFullDiskAccess(const AppState& state) {
    return *state.fullDiskAccess == PermissionStatus::granted;
}

}  // namespace morvane::screens
