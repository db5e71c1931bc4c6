#include "writer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <system_error>

#include "descriptor.h"

namespace morvane::sample {
namespace {

namespace fs = std::filesystem;

std::string lineAbout(std::string_view path, int error) {
    return std::string(path) + ": " + std::strerror(error);
}

std::array<timespec, 2> bothTimes(Moment moment) {
    return {timespec{.tv_sec = moment, .tv_nsec = 0}, timespec{.tv_sec = moment, .tv_nsec = 0}};
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool writeZeros(int descriptor, std::int64_t bytes) {
    static constexpr std::array<char, 65'536> zeros{};
    while (bytes > 0) {
        const auto part = std::min<std::int64_t>(bytes, zeros.size());
        if (!writeAll(descriptor, {zeros.data(), static_cast<std::size_t>(part)})) {
            return false;
        }
        bytes -= part;
    }
    return true;
}

/// Fills the file with real blocks: `content`, then zeros up to `bytes`.
bool fill(int descriptor, std::string_view content, std::int64_t bytes) {
    const auto length = static_cast<std::int64_t>(content.size());
    if (bytes > length) {
        int result = -1;
        do {
            result = ::fallocate(descriptor, 0, 0, bytes);
        } while (result != 0 && errno == EINTR);
        if (result == 0) {
            return writeAll(descriptor, content);
        }
        if (errno != EOPNOTSUPP && errno != ENOSYS) {
            return false;
        }
    }
    return writeAll(descriptor, content) &&
           writeZeros(descriptor, std::max<std::int64_t>(0, bytes - length));
}

/// 0, or the error number. `path` is relative to `root`.
int makeFile(int root, const char* path, const Entry& entry) {
    const Descriptor file(
        ::openat(root, path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    const auto times = bothTimes(entry.modified);
    const bool done = file.isOpen() && fill(file.number(), entry.content, entry.bytes) &&
                      ::fchmod(file.number(), entry.mode) == 0 &&
                      ::futimens(file.number(), times.data()) == 0;
    return done ? 0 : errno;
}

int makeLink(int root, const char* path, const Entry& entry) {
    const auto times = bothTimes(entry.modified);
    const bool done = ::symlinkat(entry.content.c_str(), root, path) == 0 &&
                      ::utimensat(root, path, times.data(), AT_SYMLINK_NOFOLLOW) == 0;
    return done ? 0 : errno;
}

int make(int root, const Entry& entry) {
    const char* const path = entry.path.c_str() + 1;
    switch (entry.kind) {
        case EntryKind::folder:
            return ::mkdirat(root, path, 0700) == 0 ? 0 : errno;
        case EntryKind::file:
            return makeFile(root, path, entry);
        case EntryKind::link:
            return makeLink(root, path, entry);
        case EntryKind::hardLink:
            return ::linkat(root, entry.content.c_str() + 1, root, path, 0) == 0 ? 0 : errno;
    }
    return EINVAL;
}

/// Modes and times of folders, innermost first, after all that lies in them.
std::optional<std::string> settleFolders(int root, const Plan& plan) {
    const auto& entries = plan.entries();
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (entry->kind != EntryKind::folder) {
            continue;
        }
        const char* const path = entry->path.c_str() + 1;
        const auto times = bothTimes(entry->modified);
        if (::fchmodat(root, path, entry->mode, 0) != 0 ||
            ::utimensat(root, path, times.data(), 0) != 0) {
            return lineAbout(entry->path, errno);
        }
    }
    return std::nullopt;
}

std::optional<std::string> writeRoot(int root, const Plan& plan, const BulkTree& bulk) {
    for (const Entry& entry : plan.entries()) {
        if (const int error = make(root, entry)) {
            return lineAbout(entry.path, error);
        }
    }
    if (auto problem = growBulk(root, bulk)) {
        return problem;
    }
    return settleFolders(root, plan);
}

}  // namespace

Place lookAt(const std::string& folder) {
    struct stat facts{};
    if (::lstat(folder.c_str(), &facts) != 0) {
        return errno == ENOENT ? Place::free : Place::taken;
    }
    DIR* const listing = ::opendir(folder.c_str());
    if (listing == nullptr) {
        return Place::taken;
    }
    bool isEmpty = true;
    errno = 0;
    while (const dirent* const entry = ::readdir(listing)) {
        const std::string_view name = entry->d_name;
        isEmpty = isEmpty && (name == "." || name == "..");
    }
    isEmpty = isEmpty && errno == 0;
    ::closedir(listing);
    return isEmpty ? Place::free : Place::taken;
}

std::int64_t freeBytes(const std::string& folder) {
    std::error_code failed;
    fs::path place = fs::absolute(folder, failed);
    struct statvfs facts{};
    while (::statvfs(place.c_str(), &facts) != 0) {
        if (errno != ENOENT || place == place.parent_path()) {
            return 0;
        }
        place = place.parent_path();
    }
    return static_cast<std::int64_t>(facts.f_bavail) * static_cast<std::int64_t>(facts.f_frsize);
}

std::optional<std::string> writeDisk(const std::string& folder, const Plan& plan,
                                     const BulkTree& bulk, const std::string& hostJson) {
    std::error_code failed;
    fs::create_directories(folder, failed);
    const Descriptor disk(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!disk.isOpen()) {
        return lineAbout(folder, failed ? failed.value() : errno);
    }
    if (::mkdirat(disk.number(), "root", 0755) != 0) {
        return lineAbout(folder + "/root", errno);
    }
    const Descriptor root(::openat(disk.number(), "root", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!root.isOpen()) {
        return lineAbout(folder + "/root", errno);
    }
    if (auto problem = writeRoot(root.number(), plan, bulk)) {
        return problem;
    }
    Entry host;
    host.content = hostJson;
    host.modified = plan.now();
    host.mode = 0644;
    if (const int error = makeFile(disk.number(), "host.json", host)) {
        return lineAbout(folder + "/host.json", error);
    }
    const auto times = bothTimes(plan.now());
    if (::fchmod(root.number(), 0755) != 0 || ::futimens(root.number(), times.data()) != 0 ||
        ::futimens(disk.number(), times.data()) != 0) {
        return lineAbout(folder, errno);
    }
    return std::nullopt;
}

}  // namespace morvane::sample
