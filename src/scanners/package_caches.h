#pragma once

#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// What package managers keep of their downloads, one item a folder, largest first.
[[nodiscard]] std::vector<CleanupItem> scanPackageCaches(const ScanContext& scan);

}  // namespace morvane::CleanupScanner
