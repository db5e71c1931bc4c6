#pragma once

#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The build folders that Xcode keeps for each project, largest first; those below a megabyte are
// left out.
[[nodiscard]] std::vector<CleanupItem> scanDerivedData(const ScanContext& scan);

}  // namespace morvane::CleanupScanner
