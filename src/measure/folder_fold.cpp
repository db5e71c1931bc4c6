#include "measure/folder_fold.h"

#include <algorithm>

#include "measure/storage_scanner.h"

namespace morvane::StorageScanner {

namespace {

constexpr std::int64_t foldedBelow = 10'000'000;
constexpr double minimumShare = 0.01;
constexpr std::size_t mostKept = 24;

// What a child of a folder of `total` bytes must hold to be kept. Grows with `total`.
constexpr std::int64_t cutoff(std::int64_t total) {
    return static_cast<std::int64_t>(static_cast<double>(total) * minimumShare);
}

}  // namespace

bool FolderFold::standsBefore(const Candidate& left, const Candidate& right) {
    if (left.node.bytes != right.node.bytes) return left.node.bytes > right.node.bytes;
    return left.arrival < right.arrival;
}

bool FolderFold::mayBeKept(std::int64_t bytes) const {
    // A folder that keeps children at all ends with at least `foldedBelow` bytes, and with no less
    // than it has now.
    if (bytes < cutoff(std::max(total_, foldedBelow))) return false;
    return largest_.size() < mostKept || bytes > largest_.front().node.bytes;
}

void FolderFold::insert(StorageNode node) {
    if (largest_.size() == mostKept) {
        std::pop_heap(largest_.begin(), largest_.end(), standsBefore);
        largest_.pop_back();
    }
    largest_.push_back({std::move(node), arrivals_++});
    std::push_heap(largest_.begin(), largest_.end(), standsBefore);
}

std::vector<StorageNode> FolderFold::takeKept() {
    std::vector<Candidate> candidates = std::exchange(largest_, {});
    std::vector<StorageNode> kept;
    if (total_ < foldedBelow) return kept;

    std::sort_heap(candidates.begin(), candidates.end(), standsBefore);
    std::int64_t rest = total_;
    for (Candidate& candidate : candidates) {
        if (candidate.node.bytes < cutoff(total_)) break;
        rest -= candidate.node.bytes;
        kept.push_back(std::move(candidate.node));
    }
    if (!kept.empty() && rest > 0) {
        kept.push_back({.name = "Other items",
                        .url = std::nullopt,
                        .kind = StorageNode::Kind::rest,
                        .bytes = rest});
    }
    return kept;
}

StorageNode makeFolderNode(std::string name, std::filesystem::path url,
                           std::vector<StorageNode> children) {
    FolderFold fold;
    for (StorageNode& child : children) {
        fold.add(child.bytes, [&child] { return std::move(child); });
    }
    StorageNode node{.name = std::move(name), .url = std::move(url), .bytes = fold.total()};
    node.children = fold.takeKept();
    return node;
}

}  // namespace morvane::StorageScanner
