#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/disk.h"

namespace morvane::StorageScanner {

// The whole disk: the scanned folders by size, then the system's volumes, then what no walk could
// reach ("System Data", or "Measuring…" while a scan runs), so that the tree adds up to all the
// room that is not free. Purgeable room counts as used here.
[[nodiscard]] StorageNode storageRoot(const DiskUsage& disk,
                                      const std::vector<StorageNode>& storageFolders,
                                      std::optional<std::int64_t> storageSystemBytes,
                                      bool isScanning);

// The nodes from `root` down along the names of `storagePath`, as far as there are folders with
// children of those names: never empty, never ending on a leaf but for `root` itself. Points into
// `root`.
[[nodiscard]] std::vector<const StorageNode*> storageChain(
    const StorageNode& root, const std::vector<std::string>& storagePath);

}  // namespace morvane::StorageScanner
