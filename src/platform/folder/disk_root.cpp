#include "platform/folder/disk_root.h"

#include <cerrno>
#include <deque>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <vector>

#include "platform/folder/straight_path.h"

namespace morvane::folder {

namespace {

constexpr int mostLinks = 32;
constexpr int folderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;

Descriptor openAt(int folder, const std::string& name, int flags) {
    return Descriptor(::openat(folder, name.c_str(), flags | O_CLOEXEC));
}

// Puts the components of `path` in front of what is still to be walked.
void prepend(std::deque<std::string>& components, std::string_view path) {
    std::vector<std::string> found;
    for (std::size_t start = 0; start < path.size();) {
        std::size_t end = path.find('/', start);
        if (end == std::string_view::npos) end = path.size();
        if (end > start && path.substr(start, end - start) != ".") {
            found.emplace_back(path.substr(start, end - start));
        }
        start = end + 1;
    }
    components.insert(components.begin(), found.begin(), found.end());
}

// The target of a link, or errno. The link is open itself, so that it cannot change meanwhile.
Result<std::string> readLink(int link) {
    std::string target(256, '\0');
    while (true) {
        const ssize_t length = ::readlinkat(link, "", target.data(), target.size());
        if (length < 0) return failureFromErrno(errno, {});
        if (static_cast<std::size_t>(length) < target.size()) {
            target.resize(static_cast<std::size_t>(length));
            return target;
        }
        target.resize(target.size() * 2);
    }
}

}  // namespace

std::string Place::canonicalPath() const {
    if (name == ".") return canonicalFolder;
    return canonicalFolder == "/" ? "/" + name : canonicalFolder + "/" + name;
}

Result<DiskRoot> DiskRoot::open(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(folder, error);
    Descriptor root(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!root || error) return failureFromErrno(root ? ENOENT : errno, folder);
    return DiskRoot(std::move(root), absolute.lexically_normal());
}

// How far a resolution has come: the folder reached, its path, and what is still to be walked.
struct DiskRoot::Walk {
    const DiskRoot& disk;
    Descriptor here;
    std::vector<std::string> names;
    std::deque<std::string> rest;
    int links = 0;

    bool backToTop() {
        names.clear();
        here = openAt(disk.root_.get(), ".", O_PATH | O_DIRECTORY);
        return static_cast<bool>(here);
    }

    bool up() {
        if (names.empty()) return true;
        names.pop_back();
        here = openAt(here.get(), "..", O_PATH | O_DIRECTORY);
        return static_cast<bool>(here);
    }

    // Goes on with the target of the link `name`. Returns 0 or an errno.
    int follow(const std::string& name) {
        if (++links > mostLinks) return ELOOP;
        const Descriptor link = openAt(here.get(), name, O_PATH | O_NOFOLLOW);
        if (!link) return errno;
        const Result<std::string> target = readLink(link.get());
        if (!target.ok()) return target.failure().code;
        if (target->empty()) return ENOENT;
        if (target->front() == '/' && !backToTop()) return errno;
        prepend(rest, *target);
        return 0;
    }

    [[nodiscard]] std::string canonical() const {
        std::string path;
        for (const std::string& name : names) path += "/" + name;
        return path.empty() ? "/" : path;
    }
};

// Most paths have no link on the way, and then one question replaces one for each component.
std::optional<Result<Place>> DiskRoot::resolveStraight(const std::filesystem::path& path,
                                                       bool followLast) const {
    std::optional<StraightPath> straight = straightPath(path.native());
    if (!straight) return std::nullopt;
    Descriptor folder = openStraight(root_.get(), straight->folder, O_PATH | O_DIRECTORY);
    if (!folder) return std::nullopt;
    if (followLast) {
        struct stat status{};
        if (::fstatat(folder.get(), straight->name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
            return failureFromErrno(errno, path);
        }
        if (S_ISLNK(status.st_mode)) return std::nullopt;
    }
    return Place{std::move(folder), std::move(straight->name), std::move(straight->folder)};
}

Result<Place> DiskRoot::resolve(const std::filesystem::path& path, bool followLast,
                                bool create) const {
    if (!create) {
        std::optional<Result<Place>> straight = resolveStraight(path, followLast);
        if (straight) return *std::move(straight);
    }
    const std::string& bytes = path.native();
    if (bytes.find('\0') != std::string::npos) return failureFromErrno(ENOENT, path);
    Walk walk{*this, {}, {}, {}};
    if (!walk.backToTop()) return failureFromErrno(errno, path);
    prepend(walk.rest, bytes);
    // A trailing slash asks for the folder that a link leads to.
    const bool wantsFolder = bytes.size() > 1 && bytes.back() == '/';

    while (!walk.rest.empty()) {
        const std::string name = std::move(walk.rest.front());
        walk.rest.pop_front();
        if (name == "..") {
            if (!walk.up()) return failureFromErrno(errno, path);
            continue;
        }
        const bool isLast = walk.rest.empty();
        if (isLast && !followLast && !wantsFolder) {
            std::string canonical = walk.canonical();
            return Place{std::move(walk.here), name, std::move(canonical)};
        }
        // Nearly every component is a folder: opening it tells that, and asks nothing else.
        if (Descriptor next = openAt(walk.here.get(), name, folderFlags)) {
            walk.here = std::move(next);
            walk.names.push_back(name);
            continue;
        }
        struct stat status{};
        if (::fstatat(walk.here.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
            if (errno != ENOENT || !create) return failureFromErrno(errno, path);
            if (::mkdirat(walk.here.get(), name.c_str(), 0777) != 0 && errno != EEXIST) {
                return failureFromErrno(errno, path);
            }
            walk.rest.push_front(name);
            continue;
        }
        if (S_ISLNK(status.st_mode)) {
            if (const int code = walk.follow(name); code != 0) return failureFromErrno(code, path);
            continue;
        }
        if (S_ISDIR(status.st_mode)) {
            // It refused to be opened, or has just come to be a folder.
            Descriptor next = openAt(walk.here.get(), name, folderFlags);
            if (!next) return failureFromErrno(errno, path);
            walk.here = std::move(next);
            walk.names.push_back(name);
            continue;
        }
        if (!isLast || wantsFolder) return failureFromErrno(ENOTDIR, path);
        std::string canonical = walk.canonical();
        return Place{std::move(walk.here), name, std::move(canonical)};
    }
    // The path ends in a folder that is open already: name it from the folder above.
    if (walk.names.empty()) return Place{std::move(walk.here), ".", "/"};
    std::string name = walk.names.back();
    if (!walk.up()) return failureFromErrno(errno, path);
    std::string canonical = walk.canonical();
    return Place{std::move(walk.here), std::move(name), std::move(canonical)};
}

Result<Place> DiskRoot::locate(const std::filesystem::path& path) const {
    return resolve(path, false, false);
}

Result<Place> DiskRoot::locateTarget(const std::filesystem::path& path) const {
    return resolve(path, true, false);
}

Result<Descriptor> DiskRoot::openTarget(const std::filesystem::path& path, int flags) const {
    Result<Place> place = locateTarget(path);
    if (!place.ok()) return place.failure();
    Descriptor opened = openAt(place->folder.get(), place->name, flags | O_NOFOLLOW);
    if (!opened) return failureFromErrno(errno, path);
    return opened;
}

Result<Descriptor> DiskRoot::makeFolders(const std::filesystem::path& path) const {
    Result<Place> place = resolve(path, true, true);
    if (!place.ok()) return place.failure();
    Descriptor opened = openAt(place->folder.get(), place->name, folderFlags);
    if (!opened) return failureFromErrno(errno, path);
    return opened;
}

std::filesystem::path DiskRoot::onThisMachine(const std::string& canonicalPath) const {
    return canonicalPath == "/" ? folder_ : std::filesystem::path(folder_.native() + canonicalPath);
}

}  // namespace morvane::folder
