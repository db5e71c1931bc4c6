#include "platform/folder/desktop_workspace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace morvane::folder {

namespace {

// Where an item lies on this machine; nothing when it is gone.
std::optional<std::filesystem::path> placeOf(const DiskRoot& root, const Result<Place>& found) {
    if (!found.ok()) return std::nullopt;
    struct stat unused{};
    if (::fstatat(found->folder.get(), found->name.c_str(), &unused, AT_SYMLINK_NOFOLLOW) != 0) {
        return std::nullopt;
    }
    return root.onThisMachine(found->canonicalPath());
}

}  // namespace

void DesktopWorkspace::openURL(const std::string& url) {
    if (surroundings_.desktop == nullptr) return DiskWorkspace::openURL(url);
    surroundings_.desktop->openURL(url);
}

void DesktopWorkspace::open(const std::filesystem::path& path) {
    if (surroundings_.desktop == nullptr) return DiskWorkspace::open(path);
    // Links are followed here: followed by the desktop, an absolute one would lead out of the disk.
    const auto place = placeOf(root_, root_.locateTarget(path));
    if (place) surroundings_.desktop->open(*place);
}

void DesktopWorkspace::reveal(const std::filesystem::path& path) {
    if (surroundings_.desktop == nullptr) return DiskWorkspace::reveal(path);
    const auto place = placeOf(root_, root_.locate(path));
    if (place) surroundings_.desktop->reveal(*place);
}

void DesktopWorkspace::activate() {
    if (surroundings_.desktop == nullptr) return DiskWorkspace::activate();
    surroundings_.desktop->activate();
}

bool DesktopWorkspace::isActive() const {
    if (surroundings_.windows == nullptr) return DiskWorkspace::isActive();
    return surroundings_.windows->isActive();
}

void DesktopWorkspace::chooseFolders(
    const FolderPanel& panel,
    std::function<void(std::optional<std::vector<std::filesystem::path>>)> chosen) {
    if (surroundings_.windows == nullptr || host().current()->hasOpenPanel) {
        return DiskWorkspace::chooseFolders(panel, std::move(chosen));
    }
    if (surroundings_.desktop == nullptr) recordPanel(panel);
    surroundings_.windows->chooseFolders(panel, std::move(chosen));
}

}  // namespace morvane::folder
