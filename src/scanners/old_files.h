#pragma once

#include <filesystem>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The regular files below `folder`, however deep, that were modified strictly before `cutoff`, by
// path. The folders that hold them are not among them.
[[nodiscard]] std::vector<CleanupPart> oldFiles(const ScanContext& scan,
                                                const std::filesystem::path& folder,
                                                Instant cutoff);

}  // namespace morvane::CleanupScanner
