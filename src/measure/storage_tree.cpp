#include "measure/storage_tree.h"

#include <algorithm>
#include <utility>

namespace morvane::StorageScanner {

namespace {

std::int64_t sumOf(const std::vector<StorageNode>& nodes) {
    std::int64_t sum = 0;
    for (const StorageNode& node : nodes) sum += node.bytes;
    return sum;
}

}  // namespace

StorageNode storageRoot(const DiskUsage& disk, const std::vector<StorageNode>& storageFolders,
                        std::optional<std::int64_t> storageSystemBytes, bool isScanning) {
    const std::int64_t used = std::max<std::int64_t>(disk.totalBytes - disk.freeBytes, 0);
    StorageNode root{.name = disk.volumeName, .url = "/"};
    for (const StorageNode& folder : storageFolders) {
        if (folder.bytes > 0) root.children.push_back(folder);
    }
    std::stable_sort(
        root.children.begin(), root.children.end(),
        [](const StorageNode& left, const StorageNode& right) { return left.bytes > right.bytes; });

    const auto append = [&root](std::string name, StorageNode::Kind kind, std::int64_t bytes) {
        root.children.push_back(
            {.name = std::move(name), .url = std::nullopt, .kind = kind, .bytes = bytes});
    };
    if (storageSystemBytes.value_or(0) > 0) {
        append("System", StorageNode::Kind::system, *storageSystemBytes);
    }
    const std::int64_t reached = sumOf(root.children);
    if (used > reached) {
        if (isScanning) {
            append("Measuring…", StorageNode::Kind::pending, used - reached);
        } else {
            append("System Data", StorageNode::Kind::systemData, used - reached);
        }
    }
    root.bytes = std::max(used, reached);
    return root;
}

std::vector<const StorageNode*> storageChain(const StorageNode& root,
                                             const std::vector<std::string>& storagePath) {
    std::vector<const StorageNode*> chain{&root};
    for (const std::string& name : storagePath) {
        const std::vector<StorageNode>& children = chain.back()->children;
        const auto child =
            std::find_if(children.begin(), children.end(),
                         [&name](const StorageNode& node) { return node.name == name; });
        if (child == children.end() || child->children.empty()) break;
        chain.push_back(&*child);
    }
    return chain;
}

}  // namespace morvane::StorageScanner
