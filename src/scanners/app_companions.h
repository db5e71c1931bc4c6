#pragma once

#include <filesystem>
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

// What there is in Library of the application of that identifier and display name, each path once,
// under the first kind that leads to it. An identifier or a name that is no plain file name ("..",
// "a/b") leads nowhere, for its paths would lie outside the folders they are looked for in.
[[nodiscard]] std::vector<Companion> candidatePaths(const ScanContext& scan,
                                                    const std::optional<std::string>& bundleID,
                                                    const std::string& name,
                                                    bool includeContainers);

}  // namespace morvane::CleanupScanner
