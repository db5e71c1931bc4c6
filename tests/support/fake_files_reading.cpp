#include <cerrno>
#include <utility>

#include "support/fake_files.h"
#include "support/fake_node.h"

namespace morvane::fakes {

using Path = std::filesystem::path;

Result<Attributes> FakeFiles::attributes(const Path& path) const {
    ask("attributes", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(path, LastLink::isItself);
    if (!found.ok()) return found.failure();
    if ((*found)->isBroken) return failureFromErrno(EIO, path);
    return (*found)->currentAttributes();
}

Presence FakeFiles::presence(const Path& path) const {
    ask("presence", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(path, LastLink::isItself);
    if (found.ok()) return (*found)->isBroken ? Presence::unknown : Presence::there;
    return found.failure().kind == Failure::Kind::notFound ? Presence::gone : Presence::unknown;
}

bool FakeFiles::exists(const Path& path) const {
    ask("exists", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(path, LastLink::isFollowed);
    return found.ok() && !(*found)->isBroken;
}

bool FakeFiles::isExecutableFile(const Path& path) const {
    ask("isExecutableFile", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(path, LastLink::isFollowed);
    return found.ok() && (*found)->attributes.kind == EntryKind::file &&
           (*found)->attributes.isExecutable;
}

Probe FakeFiles::probe(const Path& path) const {
    ask("probe", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = findReadable(path);
    if (found.ok()) {
        const bool isOther = (*found)->currentAttributes().kind == EntryKind::other;
        return isOther ? Probe::failed : Probe::opened;
    }
    return found.failure().kind == Failure::Kind::notAllowed ? Probe::refused : Probe::failed;
}

std::string FakeFiles::displayName(const Path& path) const {
    ask("displayName", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(path, LastLink::isItself);
    if (found.ok() && (*found)->displayName) return *(*found)->displayName;
    return path.filename().native();
}

Result<std::vector<ListedEntry>> FakeFiles::list(const Path& path, Hidden hidden) const {
    ask("list", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = findReadable(path);
    if (!found.ok()) return found.failure();
    if (!(*found)->isFolder()) return failureFromErrno(ENOTDIR, path);
    std::vector<ListedEntry> entries;
    for (const auto& child : (*found)->children) {
        if (hidden == Hidden::skipped && child->attributes.isHidden) continue;
        entries.push_back(
            {path / child->name, child->isBroken ? Attributes{} : child->currentAttributes()});
    }
    return entries;
}

Result<std::string> FakeFiles::readFile(const Path& path, std::int64_t limit) const {
    ask("readFile", path);
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = findReadable(path);
    if (!found.ok()) return found.failure();
    if ((*found)->attributes.kind == EntryKind::folder) return failureFromErrno(EISDIR, path);
    if ((*found)->attributes.kind != EntryKind::file) return failureFromErrno(EINVAL, path);
    if (static_cast<std::int64_t>((*found)->contents.size()) > limit) {
        return failureFromErrno(EFBIG, path);
    }
    return (*found)->contents;
}

}  // namespace morvane::fakes
