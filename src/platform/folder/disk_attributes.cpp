#include "platform/folder/disk_attributes.h"

#include <cerrno>

#include "platform/folder/file_status.h"
#include "platform/package_extensions.h"

namespace morvane::folder {

Attributes attributesByName(const std::string& name, EntryKind kind, const FolderIdentity& above,
                            const MarkedItem* marked) {
    Attributes found{.kind = kind, .folder = above};
    found.isHidden = name.size() > 1 && name.front() == '.';
    found.isPackage = kind == EntryKind::folder && isPackageName(name);
    if (marked == nullptr) return found;
    found.isHidden = found.isHidden || marked->has(Mark::hidden);
    found.isAlias = marked->has(Mark::alias);
    if (kind != EntryKind::folder) return found;
    found.isPackage = found.isPackage || marked->has(Mark::package);
    found.isVolume = marked->has(Mark::mount);
    return found;
}

Result<Attributes> readAttributes(int folder, const std::string& name, const FolderIdentity& above,
                                  const MarkedItem* marked) {
    constexpr unsigned mask =
        STATX_TYPE | STATX_MODE | STATX_BLOCKS | STATX_MTIME | STATX_BTIME | STATX_MNT_ID;
    struct statx status{};
    if (!askStatus(folder, name.c_str(), mask, status)) return failureFromErrno(errno, {});
    Attributes found = attributesByName(name, kindOf(status.stx_mode), above, marked);
    found.allocatedBytes = allocatedBytesOf(status);
    found.modified = instantOf(status.stx_mtime);
    found.created = createdOf(status);
    found.isExecutable = found.kind == EntryKind::file && (status.stx_mode & 0111) != 0;
    if (found.kind == EntryKind::folder && isMountPoint(folder, name.c_str(), status)) {
        found.isVolume = true;
    }
    return found;
}

}  // namespace morvane::folder
