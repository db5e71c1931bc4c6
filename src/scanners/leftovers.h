#pragma once

#include <set>
#include <string>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// What applications that are gone left in Library, one item an application, largest first. What
// belongs to a vendor of which one application is among `installedIDs` is never reported.
// "Containers" is looked at only with `includeContainers`: without Full Disk Access it is private.
[[nodiscard]] std::vector<CleanupItem> scanLeftovers(const ScanContext& scan,
                                                     const std::set<std::string>& installedIDs,
                                                     bool includeContainers);

}  // namespace morvane::CleanupScanner
