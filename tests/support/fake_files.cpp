#include "support/fake_files.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/package_extensions.h"
#include "support/fake_node.h"

namespace morvane::fakes {

namespace {

using Path = std::filesystem::path;

std::vector<std::string> segmentsOf(const Path& path) {
    std::vector<std::string> segments;
    const std::string& bytes = path.native();
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t end = std::min(bytes.find('/', start), bytes.size());
        if (end > start) segments.push_back(bytes.substr(start, end - start));
        start = end + 1;
    }
    return segments;
}

std::unique_ptr<FakeNode> takeFrom(FakeNode& parent, FakeNode* node) {
    const auto place = std::find_if(parent.children.begin(), parent.children.end(),
                                    [&](const auto& each) { return each.get() == node; });
    std::unique_ptr<FakeNode> taken = std::move(*place);
    parent.children.erase(place);
    return taken;
}

void collect(const FakeNode& node, const Path& path, std::vector<Path>& found) {
    for (const auto& child : node.children) {
        const Path place = path / child->name;
        found.push_back(place);
        collect(*child, place, found);
    }
}

}  // namespace

FakeFiles::FakeFiles() : root_(std::make_unique<FakeNode>()) {
    root_->parent = root_.get();
    root_->inode = lastInode_;
    root_->attributes.kind = EntryKind::folder;
}

FakeFiles::~FakeFiles() = default;

Result<FakeNode*> FakeFiles::find(const Path& path, LastLink last) const {
    constexpr int mostLinks = 32;
    std::vector<std::string> left = segmentsOf(path);
    std::reverse(left.begin(), left.end());
    FakeNode* node = root_.get();
    int links = 0;
    while (!left.empty()) {
        const std::string name = std::move(left.back());
        left.pop_back();
        if (!node->isFolder()) return failureFromErrno(ENOTDIR, path);
        if (name == ".") continue;
        if (name == "..") {
            node = node->parent;
            continue;
        }
        FakeNode* child = node->child(name);
        if (child == nullptr) return failureFromErrno(ENOENT, path);
        const bool isItself = left.empty() && last == LastLink::isItself;
        if (child->attributes.kind != EntryKind::link || isItself) {
            node = child;
            continue;
        }
        if (++links > mostLinks) return failureFromErrno(ELOOP, path);
        std::vector<std::string> target = segmentsOf(child->target);
        left.insert(left.end(), std::make_move_iterator(target.rbegin()),
                    std::make_move_iterator(target.rend()));
        if (child->target.is_absolute()) node = root_.get();
    }
    return node;
}

Result<FakeNode*> FakeFiles::findReadable(const Path& path) const {
    Result<FakeNode*> found = find(path, LastLink::isFollowed);
    if (!found.ok()) return found;
    for (const FakeNode* node = *found;; node = node->parent) {
        if (node->refusesReading) return failureFromErrno(EPERM, path);
        if (node == node->parent) return found;
    }
}

FakeNode& FakeFiles::make(const Path& path, EntryKind kind) {
    FakeNode* folder = root_.get();
    if (path.has_relative_path() && path.parent_path() != path.root_path()) {
        const Result<FakeNode*> parent = find(path.parent_path(), LastLink::isFollowed);
        folder = parent.ok() && (*parent)->isFolder()
                     ? *parent
                     : &make(path.parent_path(), EntryKind::folder);
    }
    const std::string name = path.filename().native();
    if (FakeNode* old = folder->child(name)) {
        if (kind == EntryKind::folder && old->isFolder()) return *old;
        takeFrom(*folder, old);
    }
    FakeNode& node = *folder->children.emplace_back(std::make_unique<FakeNode>());
    node.name = name;
    node.parent = folder;
    node.inode = ++lastInode_;
    node.attributes.kind = kind;
    node.attributes.isHidden = name.starts_with('.');
    node.attributes.isPackage = kind == EntryKind::folder && isPackageName(name);
    return node;
}

void FakeFiles::addFolder(const Path& path) {
    const std::lock_guard lock(mutex_);
    make(path, EntryKind::folder);
}

void FakeFiles::addFile(const Path& path, std::int64_t bytes, std::optional<Instant> modified) {
    const std::lock_guard lock(mutex_);
    Attributes& attributes = make(path, EntryKind::file).attributes;
    attributes.allocatedBytes = bytes;
    attributes.modified = modified;
}

void FakeFiles::addContents(const Path& path, std::string contents) {
    const std::lock_guard lock(mutex_);
    FakeNode& node = make(path, EntryKind::file);
    node.attributes.allocatedBytes = 4096;
    node.contents = std::move(contents);
}

void FakeFiles::addLink(const Path& path, Path target, std::int64_t bytes) {
    const std::lock_guard lock(mutex_);
    FakeNode& node = make(path, EntryKind::link);
    node.attributes.allocatedBytes = bytes;
    node.target = std::move(target);
}

void FakeFiles::addOther(const Path& path) {
    const std::lock_guard lock(mutex_);
    make(path, EntryKind::other);
}

void FakeFiles::change(const Path& path, const std::function<void(Attributes&)>& change) {
    const std::lock_guard lock(mutex_);
    if (const Result<FakeNode*> found = find(path, LastLink::isItself); found.ok()) {
        change((*found)->attributes);
    }
}

void FakeFiles::setExecutable(const Path& path) {
    change(path, [](Attributes& attributes) { attributes.isExecutable = true; });
}

void FakeFiles::setDisplayName(const Path& path, std::string name) {
    const std::lock_guard lock(mutex_);
    if (const Result<FakeNode*> found = find(path, LastLink::isItself); found.ok()) {
        (*found)->displayName = std::move(name);
    }
}

void FakeFiles::remove(const Path& path) {
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(path, LastLink::isItself);
    if (found.ok() && *found != root_.get()) takeFrom(*(*found)->parent, *found);
}

bool FakeFiles::move(const Path& from, const Path& to) {
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(from, LastLink::isItself);
    const Result<FakeNode*> folder = find(to.parent_path(), LastLink::isFollowed);
    const std::string name = to.filename().native();
    if (!found.ok() || !folder.ok() || !(*folder)->isFolder()) return false;
    if ((*folder)->child(name) != nullptr) return false;
    for (const FakeNode* above = *folder; above != root_.get(); above = above->parent) {
        if (above == *found) return false;
    }
    std::unique_ptr<FakeNode> node = takeFrom(*(*found)->parent, *found);
    node->name = name;
    node->parent = *folder;
    (*folder)->children.push_back(std::move(node));
    return true;
}

void FakeFiles::refuseReading(const Path& path) {
    const std::lock_guard lock(mutex_);
    if (const auto found = find(path, LastLink::isItself); found.ok()) {
        (*found)->refusesReading = true;
    }
}

void FakeFiles::allowReading(const Path& path) {
    const std::lock_guard lock(mutex_);
    if (const auto found = find(path, LastLink::isItself); found.ok()) {
        (*found)->refusesReading = false;
    }
}

void FakeFiles::breakAttributes(const Path& path) {
    const std::lock_guard lock(mutex_);
    if (const auto found = find(path, LastLink::isItself); found.ok()) (*found)->isBroken = true;
}

void FakeFiles::watch(Watcher watcher) {
    const std::lock_guard lock(mutex_);
    watcher_ = std::move(watcher);
}

void FakeFiles::ask(std::string_view question, const Path& path) const {
    Watcher watcher;
    {
        const std::lock_guard lock(mutex_);
        history_.push_back(std::string(question) + " " + path.native());
        watcher = watcher_;
    }
    if (watcher) watcher(question, path);
}

std::vector<std::string> FakeFiles::history() const {
    const std::lock_guard lock(mutex_);
    return history_;
}

bool FakeFiles::wasAsked(std::string_view question) const {
    const std::lock_guard lock(mutex_);
    return std::find(history_.begin(), history_.end(), question) != history_.end();
}

std::vector<Path> FakeFiles::everything() const {
    const std::lock_guard lock(mutex_);
    std::vector<Path> found;
    collect(*root_, "/", found);
    std::sort(found.begin(), found.end());
    return found;
}

FolderIdentity FakeFiles::identity(const Path& folder) const {
    const std::lock_guard lock(mutex_);
    const Result<FakeNode*> found = find(folder, LastLink::isFollowed);
    return found.ok() ? (*found)->identity() : FolderIdentity{};
}

}  // namespace morvane::fakes
