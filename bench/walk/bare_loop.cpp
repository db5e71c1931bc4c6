#include "bare_loop.h"

#include <cstddef>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace morvane::bench {

namespace {

// Everything stands in memory and nothing is guarded against: this is no walk to be used.
struct Bare {
    std::mutex mutex;
    std::vector<int> folders;
    int working = 0;
    std::int64_t bytes = 0;

    bool next(int& folder) {
        const std::lock_guard lock(mutex);
        if (folders.empty()) return false;
        folder = folders.back();
        folders.pop_back();
        ++working;
        return true;
    }
};

struct Listed {
    std::uint64_t inode;
    std::int64_t offset;
    unsigned short length;
    unsigned char type;
};
constexpr std::size_t nameAt = 19;

void oneFolder(int folder, std::byte* buffer, std::size_t size, std::vector<int>& below,
               std::int64_t& bytes) {
    for (long got = 0; (got = ::syscall(SYS_getdents64, folder, buffer, size)) > 0;) {
        for (long at = 0; at < got;) {
            Listed entry{};
            std::memcpy(&entry, buffer + at, nameAt);
            const char* name = reinterpret_cast<const char*>(buffer + at) + nameAt;
            at += entry.length;
            if (entry.type == DT_REG) {
                struct statx status{};
                ::statx(folder, name, AT_SYMLINK_NOFOLLOW, STATX_BLOCKS, &status);
                bytes += static_cast<std::int64_t>(status.stx_blocks) * 512;
            } else if (entry.type == DT_DIR && std::strcmp(name, ".") != 0 &&
                       std::strcmp(name, "..") != 0) {
                below.push_back(::openat(folder, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            }
        }
    }
    ::close(folder);
}

void work(Bare& bare) {
    constexpr std::size_t size = 32'768;
    const auto buffer = std::make_unique<std::byte[]>(size);
    std::int64_t bytes = 0;
    std::vector<int> own;
    while (true) {
        int folder = -1;
        if (!own.empty()) {
            folder = own.back();
            own.pop_back();
        } else if (!bare.next(folder)) {
            const std::lock_guard lock(bare.mutex);
            if (bare.working == 0) break;
            continue;
        }
        oneFolder(folder, buffer.get(), size, own, bytes);
        const std::lock_guard lock(bare.mutex);
        while (own.size() > 1 && bare.folders.size() < 8) {
            bare.folders.push_back(own.front());
            own.erase(own.begin());
        }
        if (own.empty()) --bare.working;
    }
    const std::lock_guard lock(bare.mutex);
    bare.bytes += bytes;
}

}  // namespace

std::int64_t bareLoop(const std::string& folder) {
    Bare bare;
    bare.folders.push_back(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::thread second([&bare] { work(bare); });
    work(bare);
    second.join();
    return bare.bytes;
}

}  // namespace morvane::bench
