#pragma once

#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The builds kept in Xcode's archives, largest first, each named by its own "Info.plist".
[[nodiscard]] std::vector<CleanupItem> scanArchives(const ScanContext& scan);

}  // namespace morvane::CleanupScanner
