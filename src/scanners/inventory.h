#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/apps.h"
#include "scanners/app_companions.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// What the other scanners ask of the installed applications.
struct InstalledAppIndex {
    std::set<std::string> bundleIDs;
    std::vector<std::string> names;  // file names without ".app", in the order they were found

    bool operator==(const InstalledAppIndex&) const = default;
};

// The application bundles in the two Applications folders and one level of folders below; links
// are not among them, and no package is looked into.
[[nodiscard]] std::vector<std::filesystem::path> listApplications(const ScanContext& scan);

[[nodiscard]] InstalledAppIndex installedAppIndex(const ScanContext& scan);

// The application with everything it keeps around the disk. Nothing for Morvane itself, for what
// ships with macOS, and when the task was cancelled.
[[nodiscard]] std::optional<InstalledApp> loadApp(const ScanContext& scan,
                                                  const std::filesystem::path& url,
                                                  bool includeContainers,
                                                  const LibraryNames& library);

// When the metadata store says the item was opened last.
[[nodiscard]] std::optional<Instant> spotlightLastUsed(const ScanContext& scan,
                                                       const std::filesystem::path& url);

}  // namespace morvane::CleanupScanner
