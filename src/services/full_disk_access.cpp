#include "services/full_disk_access.h"

#include <array>
#include <filesystem>

namespace morvane {

PermissionStatus probeFullDiskAccess(const Platform& platform) {
    const std::array<std::filesystem::path, 4> sentinels{
        "/Library/Application Support/com.apple.TCC/TCC.db",
        platform.library() / "Application Support/com.apple.TCC/TCC.db",
        platform.library() / "Safari/Bookmarks.plist", platform.library() / "Mail"};
    for (const std::filesystem::path& sentinel : sentinels) {
        switch (platform.files.probe(sentinel)) {
            case Probe::opened:
                return PermissionStatus::granted;
            case Probe::refused:
                return PermissionStatus::denied;
            case Probe::failed:
                break;
        }
    }
    return PermissionStatus::denied;
}

}  // namespace morvane
