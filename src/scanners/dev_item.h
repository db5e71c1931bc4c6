#pragma once

#include <filesystem>
#include <string>

#include "model/cleanup.h"
#include "scanners/frame.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The row of one measured folder or file among the developer items, which goes whole. Its section
// explains it, so it has no explanation of its own.
[[nodiscard]] CleanupItem devItem(const ScanContext& scan, std::string id, std::string name,
                                  const std::filesystem::path& url, const Measure& found,
                                  Safety safety, std::string lastUsed);

// The words of when what was measured was last changed.
[[nodiscard]] std::string usedWords(const ScanContext& scan, const Measure& found);

}  // namespace morvane::CleanupScanner
