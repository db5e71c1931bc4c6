#pragma once

#include <set>
#include <string>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// What rebuilds itself: application caches, browser caches, old log files, in this order, each at
// most one item. `running` holds the bundle identifiers of the applications that were open when
// the scan began; what belongs to them is left alone.
[[nodiscard]] std::vector<CleanupItem> scanCrumbs(const ScanContext& scan,
                                                  const std::set<std::string>& running);

}  // namespace morvane::CleanupScanner
