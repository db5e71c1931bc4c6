#include "platform/folder/disk_volume.h"

#include <limits>
#include <sys/statvfs.h>

namespace morvane::folder {

namespace {

// A file system may claim anything.
std::int64_t bytes(fsblkcnt_t blocks, unsigned long blockSize) {
    std::int64_t product = 0;
    if (__builtin_mul_overflow(blocks, blockSize, &product)) {
        return std::numeric_limits<std::int64_t>::max();
    }
    return product;
}

}  // namespace

std::optional<VolumeFigures> DiskVolume::figures() const {
    const auto host = host_.current();
    if (host->hasVolume) return host->volume;
    struct statvfs status{};
    if (::fstatvfs(root_.descriptor(), &status) != 0) return std::nullopt;
    return VolumeFigures{.total = bytes(status.f_blocks, status.f_frsize),
                         .available = bytes(status.f_bavail, status.f_frsize)};
}

std::optional<std::string> DiskVolume::mountedFrom() const {
    return host_.current()->mountedFrom;
}

}  // namespace morvane::folder
