#pragma once

#include "model/vocabulary.h"
#include "platform/platform.h"

namespace morvane {

// The panes of System Settings that the user is sent to.
inline constexpr const char* fullDiskAccessPane =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles";
inline constexpr const char* notificationsPane =
    "x-apple.systempreferences:com.apple.Notifications-Settings.extension";

// Whether the system lets the program look everywhere, found out by opening what only Full Disk
// Access opens. One readable path is enough, the first refusal is final, and a disk on which none
// of the paths can be opened counts as denied. Blocks for a handful of open calls.
[[nodiscard]] PermissionStatus probeFullDiskAccess(const Platform& platform);

}  // namespace morvane
