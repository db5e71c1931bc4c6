#pragma once

#include <string>

namespace morvane::bench {

// Makes 400,000 files in 30,000 folders below `folder`, which must not exist yet. False, with the
// reason on standard error, where that failed.
bool makeTree(const std::string& folder);

}  // namespace morvane::bench
