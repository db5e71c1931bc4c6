#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// A path that an application keeps, and the word for what it holds.
struct Companion {
    std::string kind;
    std::filesystem::path url;

    bool operator==(const Companion&) const = default;
};

// The names in the folders of Library that every application is looked for in, so that an inventory
// reads them once and not once for each.
struct LibraryNames {
    std::vector<std::string> launchAgents;
    // For each such folder, by lower-case name the first entry that has it.
    std::map<std::string, std::map<std::string, std::string>, std::less<>> vendors;
};
[[nodiscard]] LibraryNames libraryNames(const ScanContext& scan);

// What there is in Library of the application of that identifier and display name, each path once,
// under the first kind that leads to it. An identifier or a name that is no plain file name ("..",
// "a/b") leads nowhere, for its paths would lie outside the folders they are looked for in.
[[nodiscard]] std::vector<Companion> candidatePaths(const ScanContext& scan,
                                                    const std::optional<std::string>& bundleID,
                                                    const std::string& name, bool includeContainers,
                                                    const LibraryNames& library);

}  // namespace morvane::CleanupScanner
