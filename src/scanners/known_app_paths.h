#pragma once

#include <span>
#include <string_view>

namespace morvane::CleanupScanner {

// A folder that an application keeps under another name than its identifier.
struct KnownAppPath {
    std::string_view bundleID;
    std::string_view kind;
    std::string_view path;  // under Library
};

// The rows of one application, in order; empty for one that keeps to its identifier.
[[nodiscard]] std::span<const KnownAppPath> knownAppPaths(std::string_view bundleID);

}  // namespace morvane::CleanupScanner
