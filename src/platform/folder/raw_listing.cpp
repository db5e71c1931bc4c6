#include "platform/folder/raw_listing.h"

#include <cerrno>
#include <limits>
#include <sys/syscall.h>
#include <unistd.h>

namespace morvane::folder {

namespace {

constexpr std::size_t bufferSize = 32'768;

}  // namespace

RawListing::RawListing() : buffer_(std::make_unique_for_overwrite<std::byte[]>(bufferSize)) {}

bool RawListing::read(int folder) {
    at_ = 0;
    filled_ = 0;
    after_ = 0;
    const long got = ::syscall(SYS_getdents64, folder, buffer_.get(), bufferSize);
    if (got <= 0) {
        // A folder that was removed while it is open has come to its end.
        if (got == 0 || errno == ENOENT) errno = 0;
        return false;
    }
    filled_ = static_cast<std::size_t>(got);
    return true;
}

bool RawListing::wasLast() const {
    // Nothing can stand behind the highest position there is. ext4 gives it to the last entry of a
    // folder, and half the calls for a small folder are saved.
    return at_ >= filled_ && after_ == std::numeric_limits<std::int64_t>::max();
}

}  // namespace morvane::folder
