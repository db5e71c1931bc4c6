#pragma once

#include <string_view>
#include <vector>

#include "model/apps.h"
#include "model/region.h"
#include "model/vocabulary.h"

namespace morvane::CleanupScanner {

// The applications on view: those whose name holds `query`, whatever its case and with the blanks
// around it passed over, in the order of `sort`. Where that says nothing, names and then paths
// decide, so that an application keeps its place from scan to scan.
[[nodiscard]] std::vector<InstalledApp> visibleApps(const std::vector<InstalledApp>& apps,
                                                    std::string_view query, AppSort sort,
                                                    Instant now, const Region& region);

}  // namespace morvane::CleanupScanner
