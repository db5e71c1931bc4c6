#include "counting_files.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace morvane::bench {

namespace {

// Hands everything on to another visit and counts what it sees.
class CountingVisit : public FolderVisit {
public:
    CountingVisit(FolderVisit* visit, std::unique_ptr<FolderVisit> owned,
                  std::atomic<std::int64_t>& entries)
        : visit_(visit), owned_(std::move(owned)), entries_(entries) {}

    void entries(const WalkedFolder& folder, std::span<const WalkedEntry> batch) override {
        entries_ += static_cast<std::int64_t>(batch.size());
        visit_->entries(folder, batch);
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder& folder,
                                       const WalkedEntry& entry) override {
        std::unique_ptr<FolderVisit> child = visit_->enter(folder, entry);
        if (child == nullptr) return nullptr;
        FolderVisit* inner = child.get();
        return std::make_unique<CountingVisit>(inner, std::move(child), entries_);
    }
    void ended(std::unique_ptr<FolderVisit> child) override {
        visit_->ended(std::move(static_cast<CountingVisit&>(*child).owned_));
    }

private:
    FolderVisit* visit_;
    std::unique_ptr<FolderVisit> owned_;
    std::atomic<std::int64_t>& entries_;
};

class SizeVisit : public FolderVisit {
public:
    void entries(const WalkedFolder&, std::span<const WalkedEntry> batch) override {
        for (const WalkedEntry& entry : batch) {
            if (entry.kind != EntryKind::file) continue;
            size.bytes += entry.allocatedBytes;
            size.newest = std::max(size.newest, entry.modified);
        }
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder&, const WalkedEntry&) override {
        return std::make_unique<SizeVisit>();
    }
    void ended(std::unique_ptr<FolderVisit> child) override {
        const TreeSize& below = static_cast<SizeVisit&>(*child).size;
        size.bytes += below.bytes;
        size.newest = std::max(size.newest, below.newest);
    }
    TreeSize size;
};

}  // namespace

Result<std::vector<ListedEntry>> CountingFiles::list(const std::filesystem::path& path,
                                                     Hidden hidden) const {
    Result<std::vector<ListedEntry>> listed = files().list(path, hidden);
    if (listed.ok()) entries_ += static_cast<std::int64_t>(listed->size());
    return listed;
}

Result<std::vector<std::string>> CountingFiles::names(const std::filesystem::path& path) const {
    Result<std::vector<std::string>> found = files().names(path);
    if (found.ok()) entries_ += static_cast<std::int64_t>(found->size());
    return found;
}

bool CountingFiles::walk(const std::filesystem::path& path, const WalkOptions& options,
                         FolderVisit& root, const StopToken& token) const {
    CountingVisit counting(&root, nullptr, entries_);
    return files().walk(path, options, counting, token);
}

TreeSize CountingFiles::treeSize(const std::filesystem::path& path, bool withDates,
                                 const StopToken& token) const {
    SizeVisit visit;
    if (!walk(path, WalkOptions{.dates = withDates}, visit, token)) return {.isUnreadable = true};
    return visit.size;
}

}  // namespace morvane::bench
