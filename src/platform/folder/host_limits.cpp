#include "platform/folder/host_limits.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "model/path_text.h"

namespace morvane::folder {

namespace {

// Where an item itself lies, or its path by the text where it does not lie anywhere.
std::string canonicalItem(const DiskRoot& disk, const std::filesystem::path& path) {
    const std::filesystem::path clean = standardised(path);
    const Result<Place> place = disk.locate(clean);
    return place.ok() ? place->canonicalPath() : clean.native();
}

// The same for the folder that a path leads to.
std::string canonicalTarget(const DiskRoot& disk, const std::filesystem::path& path) {
    const Result<Place> place = disk.locateTarget(standardised(path));
    return place.ok() ? place->canonicalPath() : canonicalItem(disk, path);
}

}  // namespace

bool liesIn(std::string_view path, std::string_view folder) {
    if (folder == "/" || folder == path) return true;
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

HostLimits::HostLimits(const DiskRoot& disk, const Host& host, std::string trash)
    : trash_(std::move(trash)) {
    for (const auto& path : host.immovable) immovable_.insert(canonicalItem(disk, path));
    for (const auto& path : host.unreadable) unreadable_.push_back(canonicalTarget(disk, path));
    for (const auto& path : host.mounts) mounts_.push_back(canonicalTarget(disk, path));
}

bool HostLimits::isImmovable(const std::string& path) const {
    return immovable_.contains(path);
}

bool HostLimits::isUnreadable(const std::string& path) const {
    if (liesIn(path, trash_)) return false;
    return std::ranges::any_of(unreadable_,
                               [&](const std::string& folder) { return liesIn(path, folder); });
}

bool HostLimits::limitsBelow(const std::string& path) const {
    return std::ranges::any_of(immovable_,
                               [&](const std::string& item) { return liesIn(item, path); }) ||
           std::ranges::any_of(unreadable_, [&](const std::string& folder) {
               return liesIn(folder, path) || liesIn(path, folder);
           });
}

bool HostLimits::holdsMount(const std::string& path) const {
    return std::ranges::any_of(mounts_,
                               [&](const std::string& mount) { return liesIn(mount, path); });
}

bool HostLimits::onOneVolume(const std::string& one, const std::string& other) const {
    return volumeOf(one) == volumeOf(other);
}

std::string HostLimits::volumeOf(const std::string& path) const {
    std::string volume;
    for (const std::string& mount : mounts_) {
        if (mount.size() > volume.size() && liesIn(path, mount)) volume = mount;
    }
    return volume;
}

}  // namespace morvane::folder
