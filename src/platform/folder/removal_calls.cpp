#include "platform/folder/removal_calls.h"

#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace morvane::folder {

RemovalCalls& RemovalCalls::real() {
    static RemovalCalls calls;
    return calls;
}

int RemovalCalls::open(int folder, const std::string& name, int flags) {
    return ::openat(folder, name.c_str(), flags | O_CLOEXEC);
}

int RemovalCalls::look(int folder, const std::string& name, struct statx& facts) {
    return ::statx(folder, name.c_str(),
                   AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | (name.empty() ? AT_EMPTY_PATH : 0),
                   STATX_TYPE | STATX_MODE | STATX_UID | STATX_INO | STATX_MNT_ID, &facts);
}

ssize_t RemovalCalls::list(int folder, void* buffer, std::size_t size) {
    return ::getdents64(folder, buffer, size);
}

int RemovalCalls::makeFolder(int folder, const std::string& name, mode_t mode) {
    return ::mkdirat(folder, name.c_str(), mode);
}

int RemovalCalls::rename(int fromFolder, const std::string& from, int toFolder,
                         const std::string& to) {
    return ::renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_NOREPLACE);
}

int RemovalCalls::unlink(int folder, const std::string& name) {
    return ::unlinkat(folder, name.c_str(), 0);
}

int RemovalCalls::removeFolder(int folder, const std::string& name) {
    return ::unlinkat(folder, name.c_str(), AT_REMOVEDIR);
}

ssize_t RemovalCalls::realPath(int item, char* buffer, std::size_t size) {
    const std::string link = "/proc/self/fd/" + std::to_string(item);
    return ::readlink(link.c_str(), buffer, size);
}

int RemovalCalls::openMountTable() {
    return ::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC);
}

}  // namespace morvane::folder
