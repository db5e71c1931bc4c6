#include "platform/folder/walk_node.h"

#include <vector>

namespace morvane::folder {

WalkNode::WalkNode(WalkNode& parent, std::string name, std::unique_ptr<FolderVisit> visit,
                   FolderIdentity identity)
    : parent_(&parent),
      name_(std::move(name)),
      visit_(visit.get()),
      owned_(std::move(visit)),
      identity_(identity) {
    parent.unended_.fetch_add(1, std::memory_order_relaxed);
}

std::filesystem::path WalkNode::path() const {
    std::vector<const WalkNode*> chain;
    std::size_t length = 0;
    for (const WalkNode* node = this; node != nullptr; node = node->parent_) {
        chain.push_back(node);
        length += node->name_.size() + 1;
    }
    std::string path;
    path.reserve(length);
    while (!chain.empty()) {
        if (!path.empty() && path.back() != '/') path += '/';
        path += chain.back()->name_;
        chain.pop_back();
    }
    return path;
}

void WalkNode::entries(std::span<const WalkedEntry> batch) {
    const std::lock_guard lock(calls_);
    visit_->entries(*this, batch);
}

std::unique_ptr<FolderVisit> WalkNode::enter(const WalkedEntry& entry) {
    const std::lock_guard lock(calls_);
    return visit_->enter(*this, entry);
}

void WalkNode::ended(std::unique_ptr<FolderVisit> child) {
    const std::lock_guard lock(calls_);
    visit_->ended(std::move(child));
}

void WalkNode::letGo(WalkNode* node) {
    while (node != nullptr && node->unended_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        WalkNode* const parent = node->parent_;
        if (parent == nullptr) return;
        parent->ended(std::move(node->owned_));
        delete node;
        node = parent;
    }
}

}  // namespace morvane::folder
