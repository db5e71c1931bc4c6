#include <algorithm>
#include <deque>
#include <utility>

#include "support/fake_files.h"
#include "support/fake_node.h"

namespace morvane::fakes {

using Path = std::filesystem::path;

namespace {

class FakeFolder : public WalkedFolder {
public:
    FakeFolder(Path path, FolderIdentity identity) : path_(std::move(path)), identity_(identity) {}
    [[nodiscard]] Path path() const override { return path_; }
    [[nodiscard]] FolderIdentity identity() const override { return identity_; }

private:
    Path path_;
    FolderIdentity identity_;
};

// One entry as it was when its folder was opened; it owns its name.
struct Seen {
    std::string name;
    WalkedEntry entry;
};

Seen seen(const FakeNode& node, const WalkOptions& options) {
    const Attributes attributes = node.currentAttributes();
    Seen result{node.name, {}};
    WalkedEntry& entry = result.entry;
    entry.kind = attributes.kind;
    entry.isPackage = attributes.isPackage;
    entry.isVolume = attributes.isVolume;
    entry.isAlias = attributes.isAlias;
    entry.isHidden = attributes.isHidden;
    const bool isAsked = attributes.kind == EntryKind::file ||
                         (options.links && attributes.kind != EntryKind::folder);
    if (!isAsked || node.isBroken) return result;
    entry.hasAttributes = true;
    entry.allocatedBytes = attributes.allocatedBytes;
    if (options.executable) entry.isExecutable = attributes.isExecutable;
    if (options.dates) entry.modified = attributes.modified;
    if (options.created) entry.created = attributes.created;
    return result;
}

class SummingVisit : public FolderVisit {
public:
    void entries(const WalkedFolder&, std::span<const WalkedEntry> batch) override {
        for (const WalkedEntry& entry : batch) {
            if (entry.kind != EntryKind::file) continue;
            size_.bytes += entry.allocatedBytes;
            size_.newest = std::max(size_.newest, entry.modified);
        }
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder&, const WalkedEntry&) override {
        return std::make_unique<SummingVisit>();
    }
    void ended(std::unique_ptr<FolderVisit> child) override {
        const TreeSize below = static_cast<SummingVisit&>(*child).size_;
        size_.bytes += below.bytes;
        size_.newest = std::max(size_.newest, below.newest);
    }
    [[nodiscard]] TreeSize size() const { return size_; }

private:
    TreeSize size_;
};

}  // namespace

// One walk. Hands over a few entries at a time, so that nobody comes to rely on whole folders.
class FakeWalk {
public:
    FakeWalk(const FakeFiles& files, const WalkOptions& options, const StopToken& token)
        : files_(files), options_(options), token_(token) {}

    bool run(const Path& path, FolderVisit& visit) {
        files_.ask("walk", path);
        std::vector<Seen> found;
        const FakeFolder* folder = open(path, found);
        if (folder == nullptr) return false;
        constexpr std::size_t batchSize = 3;
        std::vector<std::size_t> folders;
        for (std::size_t first = 0; first < found.size(); first += batchSize) {
            if (token_.stop_requested()) return true;
            std::vector<WalkedEntry> batch;
            for (std::size_t index = first; index < std::min(first + batchSize, found.size());
                 ++index) {
                batch.push_back(found[index].entry);
                batch.back().name = found[index].name;
                if (batch.back().kind == EntryKind::folder) folders.push_back(index);
            }
            visit.entries(*folder, batch);
        }
        for (const std::size_t index : folders) {
            if (token_.stop_requested()) return true;
            WalkedEntry entry = found[index].entry;
            entry.name = found[index].name;
            std::unique_ptr<FolderVisit> child = visit.enter(*folder, entry);
            if (!child) continue;
            run(path / found[index].name, *child);
            visit.ended(std::move(child));
        }
        return true;
    }

private:
    const FakeFolder* open(const Path& path, std::vector<Seen>& found) {
        const std::lock_guard lock(files_.mutex_);
        const Result<FakeNode*> node = files_.findReadable(path);
        if (!node.ok() || !(*node)->isFolder()) return nullptr;
        for (const auto& child : (*node)->children) found.push_back(seen(*child, options_));
        return &folders_.emplace_back(path, (*node)->identity());
    }

    const FakeFiles& files_;
    const WalkOptions& options_;
    const StopToken& token_;
    std::deque<FakeFolder> folders_;  // valid for as long as the visits are
};

bool FakeFiles::walk(const Path& path, const WalkOptions& options, FolderVisit& root,
                     const StopToken& token) const {
    return FakeWalk(*this, options, token).run(path, root);
}

TreeSize FakeFiles::treeSize(const Path& path, bool withDates, const StopToken& token) const {
    SummingVisit visit;
    const WalkOptions options{.dates = withDates};
    if (!FakeWalk(*this, options, token).run(path, visit)) return {.isUnreadable = true};
    return visit.size();
}

}  // namespace morvane::fakes
