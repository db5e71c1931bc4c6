#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The backups of iPhones and iPads made on this Mac, largest first.
[[nodiscard]] std::vector<CleanupItem> scanBackups(const ScanContext& scan);

// One backup, named by its own "Info.plist" where that can be read; nothing when it takes no room.
[[nodiscard]] std::optional<CleanupItem> backupItem(const ScanContext& scan,
                                                    const std::filesystem::path& folder);

}  // namespace morvane::CleanupScanner
