#include "platform/folder/disk_file_system.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "platform/folder/disk_attributes.h"
#include "platform/folder/file_status.h"
#include "platform/folder/straight_path.h"

namespace morvane::folder {

namespace {

// Not a pipe, a socket or a device: opening those may wait, or have an effect.
bool mayBeOpened(const Place& place, int& code) {
    struct stat status{};
    if (::fstatat(place.folder.get(), place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        code = errno;
        return false;
    }
    code = EINVAL;
    return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode);
}

// What was a file or a folder may have become a pipe by now, so that nothing waits here either.
Descriptor openToRead(const Place& place) {
    return Descriptor(::openat(place.folder.get(), place.name.c_str(),
                               O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC));
}

Probe refusedOrFailed(const Failure& failure) {
    return failure.kind == Failure::Kind::notAllowed ? Probe::refused : Probe::failed;
}

}  // namespace

Result<Attributes> DiskFileSystem::attributes(const std::filesystem::path& path) const {
    const Result<Place> place = disk_.locate(path);
    if (!place.ok()) return place.failure();
    HostMarks marks;
    marks.addLists(disk_, *host_.current());
    Result<Attributes> found =
        readAttributes(place->folder.get(), place->name, identityOf(place->folder.get()),
                       marks.find(place->canonicalPath()));
    if (!found.ok()) return failureFromErrno(found.failure().code, path);
    return found;
}

Presence DiskFileSystem::presence(const std::filesystem::path& path) const {
    const Result<Place> place = disk_.locate(path);
    if (!place.ok()) {
        return place.failure().kind == Failure::Kind::notFound ? Presence::gone : Presence::unknown;
    }
    struct stat status{};
    if (::fstatat(place->folder.get(), place->name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        return Presence::there;
    }
    return errno == ENOENT || errno == ENOTDIR ? Presence::gone : Presence::unknown;
}

bool DiskFileSystem::exists(const std::filesystem::path& path) const {
    return disk_.locateTarget(path).ok();
}

bool DiskFileSystem::isExecutableFile(const std::filesystem::path& path) const {
    const Result<Place> place = disk_.locateTarget(path);
    if (!place.ok()) return false;
    struct stat status{};
    if (::fstatat(place->folder.get(), place->name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return false;
    }
    return S_ISREG(status.st_mode) &&
           ::faccessat(place->folder.get(), place->name.c_str(), X_OK, AT_EACCESS) == 0;
}

Result<Place> DiskFileSystem::locateReadable(const std::filesystem::path& path,
                                             const HostMarks& marks) const {
    Result<Place> target = disk_.locateTarget(path);
    if (!target.ok() || marks.isEmpty()) return target;
    const Result<Place> itself = disk_.locate(path);
    if (marks.isUnreadable(target->canonicalPath()) ||
        (itself.ok() && marks.isUnreadable(itself->canonicalPath()))) {
        return failureFromErrno(EPERM, path);
    }
    return target;
}

Result<DiskFileSystem::OpenFolder> DiskFileSystem::openFolder(const std::filesystem::path& path,
                                                              const HostMarks& marks) const {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC;
    if (const std::optional<StraightPath> straight = straightPath(path.native())) {
        std::string whole = straight->whole();
        if (Descriptor opened = openStraight(disk_.descriptor(), whole, flags)) {
            if (marks.isUnreadable(whole)) return failureFromErrno(EPERM, path);
            return OpenFolder{std::move(opened), std::move(whole)};
        }
    }
    const Result<Place> place = locateReadable(path, marks);
    if (!place.ok()) return place.failure();
    Descriptor opened(::openat(place->folder.get(), place->name.c_str(), flags));
    if (!opened) return failureFromErrno(errno, path);
    return OpenFolder{std::move(opened), place->canonicalPath()};
}

Probe DiskFileSystem::probe(const std::filesystem::path& path) const {
    HostMarks marks;
    marks.addLists(disk_, *host_.current());
    const Result<Place> place = locateReadable(path, marks);
    if (!place.ok()) return refusedOrFailed(place.failure());
    int code = 0;
    if (!mayBeOpened(*place, code)) return refusedOrFailed(failureFromErrno(code, path));
    if (openToRead(*place)) return Probe::opened;
    return refusedOrFailed(failureFromErrno(errno, path));
}

std::string DiskFileSystem::displayName(const std::filesystem::path& path) const {
    const std::shared_ptr<const Host> host = host_.current();
    const auto named = host->displayNames.find(path);
    if (named != host->displayNames.end()) return named->second;
    if (!host->displayNames.empty()) {
        const Result<Place> place = disk_.locate(path);
        for (const auto& [key, name] : host->displayNames) {
            const Result<Place> other = disk_.locate(key);
            if (place.ok() && other.ok() && place->canonicalPath() == other->canonicalPath()) {
                return name;
            }
        }
    }
    std::string_view bytes = path.native();
    while (bytes.size() > 1 && bytes.back() == '/') bytes.remove_suffix(1);
    if (bytes.size() > 1) bytes.remove_prefix(bytes.rfind('/') + 1);
    return std::string(bytes);
}

Result<std::string> DiskFileSystem::readFile(const std::filesystem::path& path,
                                             std::int64_t limit) const {
    HostMarks marks;
    marks.addLists(disk_, *host_.current());
    const Result<Place> place = locateReadable(path, marks);
    if (!place.ok()) return place.failure();
    int code = 0;
    if (!mayBeOpened(*place, code)) return failureFromErrno(code, path);
    const Descriptor file = openToRead(*place);
    if (!file) return failureFromErrno(errno, path);
    struct stat status{};
    if (::fstat(file.get(), &status) != 0) return failureFromErrno(errno, path);
    if (S_ISDIR(status.st_mode)) return failureFromErrno(EISDIR, path);
    if (!S_ISREG(status.st_mode)) return failureFromErrno(EINVAL, path);
    if (status.st_size > limit) return failureFromErrno(EFBIG, path);

    // The file may grow or shrink meanwhile: read to its end, but never past the limit.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    while (true) {
        const ssize_t got = ::read(file.get(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return failureFromErrno(errno, path);
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
        if (static_cast<std::int64_t>(filled) > limit) return failureFromErrno(EFBIG, path);
        if (filled == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace morvane::folder
