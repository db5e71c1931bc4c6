#pragma once

#include <string>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The installers that lie in Downloads, split by whether their app is among `appNames` (names of
// installed applications without ".app"), and the attachments Mail saved, in this order, each at
// most one item. An installer is matched by its file's name alone and never opened.
[[nodiscard]] std::vector<CleanupItem> scanDownloads(const ScanContext& scan,
                                                     const std::vector<std::string>& appNames);

}  // namespace morvane::CleanupScanner
