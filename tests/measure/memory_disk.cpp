#include "measure/memory_disk.h"

#include <algorithm>
#include <utility>

namespace morvane::test {

namespace {

FolderIdentity identityOf(const std::filesystem::path& folder) {
    return {1, folder.native().size()};
}

bool isHidden(const Item& item) {
    return item.isHidden || item.name.starts_with('.');
}

Failure notFound(const std::filesystem::path& path) {
    return {Failure::Kind::notFound, 2, path};
}

class MemoryFolder final : public WalkedFolder {
public:
    explicit MemoryFolder(std::string path) : path_(std::move(path)) {}
    [[nodiscard]] std::filesystem::path path() const override { return path_; }
    [[nodiscard]] FolderIdentity identity() const override { return identityOf(path_); }

private:
    std::string path_;
};

// What an implementation owes to a walk with these options, and nothing more.
WalkedEntry entryOf(const Item& item, const WalkOptions& options) {
    WalkedEntry entry{.name = item.name,
                      .kind = item.kind,
                      .isPackage = item.isPackage,
                      .isVolume = item.isVolume,
                      .isAlias = item.isAlias,
                      .isHidden = isHidden(item)};
    if (item.kind == EntryKind::folder || (item.kind != EntryKind::file && !options.links)) {
        return entry;
    }
    entry.hasAttributes = true;
    entry.allocatedBytes = item.bytes;
    if (options.executable) entry.isExecutable = item.isExecutable;
    if (options.dates) entry.modified = item.modified;
    if (options.created) entry.created = item.created;
    return entry;
}

void addUp(const Item& item, TreeSize& size) {
    for (const Item& child : item.children) {
        if (child.kind == EntryKind::file) {
            size.bytes += child.bytes;
            size.newest = std::max(size.newest, child.modified);
        }
        if (!child.isUnreadable) addUp(child, size);
    }
}

}  // namespace

Item file(std::string name, std::int64_t bytes) {
    return {.name = std::move(name), .bytes = bytes};
}

Item folder(std::string name, std::vector<Item> children) {
    return {.name = std::move(name), .kind = EntryKind::folder, .children = std::move(children)};
}

Item package(std::string name, std::vector<Item> children) {
    Item item = folder(std::move(name), std::move(children));
    item.isPackage = true;
    return item;
}

Item link(std::string name, std::int64_t bytes) {
    return {.name = std::move(name), .kind = EntryKind::link, .bytes = bytes};
}

Item with(Item item, const std::function<void(Item&)>& change) {
    change(item);
    return item;
}

const Item* MemoryDisk::find(const std::filesystem::path& path) const {
    const Item* item = &top_;
    for (const std::filesystem::path& name : path.relative_path()) {
        const auto child = std::ranges::find(item->children, name.native(), &Item::name);
        if (child == item->children.end()) return nullptr;
        item = &*child;
    }
    return item;
}

Result<Attributes> MemoryDisk::attributes(const std::filesystem::path& path) const {
    const Item* item = find(path);
    if (item == nullptr) return notFound(path);
    return Attributes{.kind = item->kind,
                      .allocatedBytes = item->bytes,
                      .modified = item->modified,
                      .created = item->created,
                      .isExecutable = item->isExecutable,
                      .isPackage = item->isPackage,
                      .isVolume = item->isVolume,
                      .isAlias = item->isAlias,
                      .isHidden = isHidden(*item),
                      .folder = identityOf(path.parent_path())};
}

Presence MemoryDisk::presence(const std::filesystem::path& path) const {
    return exists(path) ? Presence::there : Presence::gone;
}
bool MemoryDisk::exists(const std::filesystem::path& path) const {
    return find(path) != nullptr;
}
bool MemoryDisk::isExecutableFile(const std::filesystem::path& path) const {
    const Item* item = find(path);
    return item != nullptr && item->isExecutable;
}
Probe MemoryDisk::probe(const std::filesystem::path&) const {
    return Probe::failed;
}
std::string MemoryDisk::displayName(const std::filesystem::path& path) const {
    return path.filename().native();
}

Result<std::vector<ListedEntry>> MemoryDisk::list(const std::filesystem::path& path,
                                                  Hidden hidden) const {
    const Item* item = find(path);
    if (item == nullptr || item->isUnreadable) return notFound(path);
    std::vector<ListedEntry> entries;
    for (const Item& child : item->children) {
        if (hidden == Hidden::skipped && isHidden(child)) continue;
        entries.push_back({path / child.name, *attributes(path / child.name)});
    }
    return entries;
}

Result<std::string> MemoryDisk::readFile(const std::filesystem::path& path, std::int64_t) const {
    return notFound(path);
}

bool MemoryDisk::walk(const std::filesystem::path& path, const WalkOptions& options,
                      FolderVisit& root, const StopToken& token) const {
    const Item* item = find(path);
    if (item == nullptr || item->kind != EntryKind::folder || item->isUnreadable) return false;
    walkItem(*item, path.native(), options, root, token);
    return true;
}

void MemoryDisk::walkItem(const Item& item, const std::string& path, const WalkOptions& options,
                          FolderVisit& visit, const StopToken& token) const {
    if (item.isUnreadable || token.stop_requested()) return;
    if (beforeListing) beforeListing(path);
    const MemoryFolder here(path);
    for (std::size_t start = 0; start < item.children.size(); start += batchSize) {
        if (token.stop_requested()) return;
        const std::size_t end = std::min(start + batchSize, item.children.size());
        std::vector<WalkedEntry> batch;
        for (std::size_t index = start; index < end; ++index) {
            batch.push_back(entryOf(item.children[index], options));
        }
        visit.entries(here, batch);
        for (std::size_t index = start; index < end; ++index) {
            const Item& child = item.children[index];
            if (child.kind != EntryKind::folder) continue;
            std::unique_ptr<FolderVisit> below = visit.enter(here, batch[index - start]);
            if (below == nullptr) continue;
            walkItem(child, path + "/" + child.name, options, *below, token);
            visit.ended(std::move(below));
        }
    }
}

TreeSize MemoryDisk::treeSize(const std::filesystem::path& path, bool withDates,
                              const StopToken&) const {
    TreeSize size;
    const Item* item = find(path);
    if (item != nullptr && !item->isUnreadable) addUp(*item, size);
    if (!withDates) size.newest.reset();
    return size;
}

}  // namespace morvane::test
