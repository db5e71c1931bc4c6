#pragma once

#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>

#include "platform/file_system.h"

namespace morvane::folder {

// Asks for the item `name` of an open folder itself, a link not followed and no automount
// triggered. `mask` is one of statx. False, with errno, where it could not be asked.
[[nodiscard]] inline bool askStatus(int folder, const char* name, unsigned mask,
                                    struct statx& status) {
    return ::statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, mask, &status) == 0;
}

// Which folder an open descriptor is; not known where the system does not say.
[[nodiscard]] FolderIdentity identityOf(int folder);

[[nodiscard]] EntryKind kindOf(unsigned mode);
// By the type that a listing gives (DT_REG, DT_DIR, …); DT_UNKNOWN counts as `other`.
[[nodiscard]] EntryKind kindOfListed(unsigned char type);
[[nodiscard]] std::int64_t allocatedBytesOf(const struct statx& status);
// Times outside the range of an Instant (about 1677 to 2262) are held back to its ends.
[[nodiscard]] Instant instantOf(const struct statx_timestamp& time);
// Nothing where the file system keeps no creation date.
[[nodiscard]] std::optional<Instant> createdOf(const struct statx& status);
// Whether another file system is mounted there, a bind mount too. Asks the system again only on
// kernels that leave it out of the status.
[[nodiscard]] bool isMountPoint(int folder, const char* name, const struct statx& status);

}  // namespace morvane::folder
