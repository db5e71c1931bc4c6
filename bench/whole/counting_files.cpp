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

Result<Attributes> CountingFiles::attributes(const std::filesystem::path& path) const {
    return files_.attributes(path);
}
Presence CountingFiles::presence(const std::filesystem::path& path) const {
    return files_.presence(path);
}
bool CountingFiles::exists(const std::filesystem::path& path) const {
    return files_.exists(path);
}
bool CountingFiles::isExecutableFile(const std::filesystem::path& path) const {
    return files_.isExecutableFile(path);
}
Probe CountingFiles::probe(const std::filesystem::path& path) const {
    return files_.probe(path);
}
std::string CountingFiles::displayName(const std::filesystem::path& path) const {
    return files_.displayName(path);
}
Result<std::string> CountingFiles::readFile(const std::filesystem::path& path,
                                            std::int64_t limit) const {
    return files_.readFile(path, limit);
}

Result<std::vector<ListedEntry>> CountingFiles::list(const std::filesystem::path& path,
                                                     Hidden hidden) const {
    Result<std::vector<ListedEntry>> listed = files_.list(path, hidden);
    if (listed.ok()) entries_ += static_cast<std::int64_t>(listed->size());
    return listed;
}

bool CountingFiles::walk(const std::filesystem::path& path, const WalkOptions& options,
                         FolderVisit& root, const StopToken& token) const {
    CountingVisit counting(&root, nullptr, entries_);
    return files_.walk(path, options, counting, token);
}

TreeSize CountingFiles::treeSize(const std::filesystem::path& path, bool withDates,
                                 const StopToken& token) const {
    SizeVisit visit;
    if (!walk(path, WalkOptions{.dates = withDates}, visit, token)) return {.isUnreadable = true};
    return visit.size;
}

}  // namespace morvane::bench
