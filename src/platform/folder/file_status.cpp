#include "platform/folder/file_status.h"

#include <dirent.h>
#include <limits>

namespace morvane::folder {

FolderIdentity identityOf(int folder) {
    struct stat status{};
    if (::fstat(folder, &status) != 0) return {};
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

EntryKind kindOf(unsigned mode) {
    if (S_ISREG(mode)) return EntryKind::file;
    if (S_ISDIR(mode)) return EntryKind::folder;
    if (S_ISLNK(mode)) return EntryKind::link;
    return EntryKind::other;
}

EntryKind kindOfListed(unsigned char type) {
    switch (type) {
        case DT_REG:
            return EntryKind::file;
        case DT_DIR:
            return EntryKind::folder;
        case DT_LNK:
            return EntryKind::link;
        default:
            return EntryKind::other;
    }
}

std::int64_t allocatedBytesOf(const struct statx& status) {
    return static_cast<std::int64_t>(status.stx_blocks) * 512;
}

Instant instantOf(const struct statx_timestamp& time) {
    constexpr std::int64_t second = 1'000'000'000;
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / second;
    if (time.tv_sec >= most) return Instant::max();
    if (time.tv_sec <= -most) return Instant::min();
    return Instant(std::chrono::nanoseconds(time.tv_sec * second + time.tv_nsec));
}

std::optional<Instant> createdOf(const struct statx& status) {
    if ((status.stx_mask & STATX_BTIME) == 0) return std::nullopt;
    return instantOf(status.stx_btime);
}

bool isMountPoint(int folder, const char* name, const struct statx& status) {
    if ((status.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0) {
        return (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    }
    struct statx above{};
    struct statx here{};
    if (!askStatus(folder, ".", STATX_MNT_ID, above)) return false;
    if (!askStatus(folder, name, STATX_MNT_ID, here)) return false;
    if ((above.stx_mask & here.stx_mask & STATX_MNT_ID) != 0) {
        return above.stx_mnt_id != here.stx_mnt_id;
    }
    return above.stx_dev_major != here.stx_dev_major || above.stx_dev_minor != here.stx_dev_minor;
}

}  // namespace morvane::folder
