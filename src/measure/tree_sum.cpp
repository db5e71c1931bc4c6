#include "measure/tree_sum.h"

#include <algorithm>

namespace morvane {

namespace {

class SummingVisit final : public FolderVisit {
public:
    explicit SummingVisit(TreeSum& sum) : sum_(sum) {}

    void entries(const WalkedFolder&, std::span<const WalkedEntry> batch) override {
        sum_.add(batch);
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder&, const WalkedEntry&) override {
        return sum_.enterFolder();
    }
    void ended(std::unique_ptr<FolderVisit>) override {}

private:
    TreeSum& sum_;
};

}  // namespace

void TreeSum::add(std::span<const WalkedEntry> batch) {
    std::int64_t bytes = 0;
    Instant newest = none;
    for (const WalkedEntry& entry : batch) {
        if (entry.kind != EntryKind::file) continue;
        bytes += entry.allocatedBytes;
        if (entry.modified) newest = std::max(newest, *entry.modified);
    }
    bytes_.fetch_add(bytes);
    const auto count = newest.time_since_epoch().count();
    auto known = newest_.load();
    while (known < count && !newest_.compare_exchange_weak(known, count)) {
    }
}

std::optional<Instant> TreeSum::newest() const {
    const Instant newest{Instant::duration{newest_.load()}};
    return newest == none ? std::nullopt : std::optional(newest);
}

std::unique_ptr<FolderVisit> TreeSum::enterFolder() {
    return std::make_unique<SummingVisit>(*this);
}

}  // namespace morvane
