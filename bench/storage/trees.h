#pragma once

#include <string>

namespace morvane::bench {

// The folder of a Mac disk below `folder` that has as many trees of 400,000 files in 30,000 folders
// as told, side by side in its "/opt"; made at the first call and kept. Empty, with the reason on
// standard error, where that failed.
[[nodiscard]] std::string diskWithTrees(const std::string& folder, int trees);

}  // namespace morvane::bench
