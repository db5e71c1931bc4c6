#include "platform/folder/removal_rules.h"

#include <algorithm>
#include <cerrno>

#include "model/path_text.h"
#include "platform/folder/mount_table.h"

namespace morvane::folder {

Result<RemovalRules> RemovalRules::read(RemovalCalls& calls, const DiskRoot& disk,
                                        const Host& host) {
    Result<ProtectedFolders> folders = ProtectedFolders::find(calls, disk, host.home);
    if (!folders.ok()) return folders.failure();
    HostLimits limits(disk, host, folders->canonicalTrash());
    return RemovalRules(calls, disk, *std::move(folders), std::move(limits));
}

Result<ItemFacts> RemovalRules::examine(const Place& place,
                                        const std::filesystem::path& path) const {
    const std::string canonical = place.canonicalPath();
    if (protected_.covers(path.native()) || protected_.covers(canonical)) return refusal(path);
    Result<ItemFacts> item = lookAt(*calls_, place.folder.get(), place.name);
    if (!item.ok()) return at(item.failure(), path);
    if (protected_.covers(*item)) return refusal(path);
    const Result<ItemFacts> folder = lookAt(*calls_, place.folder.get(), "");
    if (!folder.ok()) return at(folder.failure(), path);
    if (item->isMountRoot || item->mount != folder->mount || limits_.holdsMount(canonical)) {
        return refusal(path, EBUSY);
    }
    if (item->isFolder) {
        const Result<bool> mounted =
            morvane::folder::holdsMount(*calls_, place.folder.get(), place.name);
        if (!mounted.ok()) return at(mounted.failure(), path);
        if (*mounted) return refusal(path, EBUSY);
    }
    if (limits_.isImmovable(canonical)) return failureFromErrno(EPERM, path);
    return item;
}

Result<std::filesystem::path> cleanPath(const DiskRoot& disk, const std::filesystem::path& path) {
    if (!path.is_absolute()) return refusal(path);
    std::filesystem::path clean = standardised(path);
    if (std::ranges::find(path, "..") == path.end()) return clean;
    std::string asked = path.native();
    while (asked.size() > 1 && asked.back() == '/') asked.pop_back();
    const Result<Place> byDisk = disk.locate(asked);
    const Result<Place> byText = disk.locate(clean);
    if (!byDisk.ok()) return at(byDisk.failure(), path);
    if (!byText.ok()) return at(byText.failure(), path);
    if (byDisk->canonicalPath() != byText->canonicalPath()) return refusal(path);
    return clean;
}

}  // namespace morvane::folder
