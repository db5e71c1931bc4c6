#include "scanners/old_files.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace morvane::CleanupScanner {

namespace {

class OldFilesVisit : public FolderVisit {
public:
    explicit OldFilesVisit(Instant cutoff) : cutoff_(cutoff) {}

    void entries(const WalkedFolder& folder, std::span<const WalkedEntry> batch) override {
        for (const WalkedEntry& entry : batch) {
            if (entry.kind != EntryKind::file || !entry.modified || *entry.modified >= cutoff_) {
                continue;
            }
            if (!identity_.isKnown()) identity_ = folder.identity();
            found_.push_back({folder.path() / entry.name, entry.allocatedBytes, identity_});
        }
    }

    std::unique_ptr<FolderVisit> enter(const WalkedFolder&, const WalkedEntry&) override {
        return std::make_unique<OldFilesVisit>(cutoff_);
    }

    void ended(std::unique_ptr<FolderVisit> child) override {
        auto below = static_cast<OldFilesVisit&>(*child).take();
        found_.insert(found_.end(), std::make_move_iterator(below.begin()),
                      std::make_move_iterator(below.end()));
    }

    std::vector<CleanupPart> take() { return std::move(found_); }

private:
    Instant cutoff_;
    FolderIdentity identity_;
    std::vector<CleanupPart> found_;
};

}  // namespace

std::vector<CleanupPart> oldFiles(const ScanContext& scan, const std::filesystem::path& folder,
                                  Instant cutoff) {
    OldFilesVisit visit(cutoff);
    scan.platform.files.walk(folder, WalkOptions{.dates = true}, visit, scan.token);
    std::vector<CleanupPart> parts = visit.take();
    // Folders are walked side by side, so their order would vary from scan to scan.
    std::sort(parts.begin(), parts.end(), [](const CleanupPart& left, const CleanupPart& right) {
        return left.url < right.url;
    });
    return parts;
}

}  // namespace morvane::CleanupScanner
