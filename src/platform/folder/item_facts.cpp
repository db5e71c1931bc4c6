#include "platform/folder/item_facts.h"

#include <cerrno>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <utility>

namespace morvane::folder {

Result<ItemFacts> lookAt(RemovalCalls& calls, int folder, const std::string& name) {
    struct statx found{};
    if (calls.look(folder, name, found) != 0) return failureFromErrno(errno, {});
    const bool knowsMount = (found.stx_mask & STATX_MNT_ID) != 0 &&
                            (found.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0;
    if (!knowsMount) return refusal({}, ENOTSUP);
    ItemFacts facts;
    facts.identity = {makedev(found.stx_dev_major, found.stx_dev_minor), found.stx_ino};
    facts.isFolder = S_ISDIR(found.stx_mode);
    facts.owner = found.stx_uid;
    facts.mount = found.stx_mnt_id;
    facts.isMountRoot = (found.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    return facts;
}

Failure refusal(const std::filesystem::path& path, int code) {
    return {Failure::Kind::refused, code, path};
}

Failure renameFailure(int code, const std::filesystem::path& path) {
    switch (code) {
        case EXDEV:   // another volume: it would have to be copied and deleted
        case EBUSY:   // a mounted volume
        case EINVAL:  // the file system cannot promise to overwrite nothing, or into itself
        case ENOSYS:  // nor can the kernel
        case ENOTSUP:
            return refusal(path, code);
        default:
            return failureFromErrno(code, path);
    }
}

Failure at(Failure failure, const std::filesystem::path& path) {
    failure.path = path;
    return failure;
}

}  // namespace morvane::folder
