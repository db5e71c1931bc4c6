#pragma once

#include <optional>
#include <string>
#include <vector>

namespace morvane::folder {

// Where other file systems are mounted below an open folder: paths that begin at that folder, with
// a "/" in front. One question for a whole walk, in place of one for each folder met. Nothing where
// the system does not tell.
[[nodiscard]] std::optional<std::vector<std::string>> mountsBelow(int folder);

}  // namespace morvane::folder
