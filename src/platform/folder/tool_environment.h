#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/folder/disk_root.h"

namespace morvane::folder {

// The environment of this program as it stands, each entry "NAME=value".
[[nodiscard]] std::vector<std::string> ownEnvironment();

// `own` for a tool of the disk: PATH begins with the folder of `executable` and with those that
// package managers fill, each by its place on this machine; MORVANE_DISK is `disk`. A folder that
// is a link is resolved inside the disk; one that is missing is given where its path would lie.
[[nodiscard]] std::vector<std::string> toolEnvironment(const std::vector<std::string>& own,
                                                       const DiskRoot& root,
                                                       const std::filesystem::path& disk,
                                                       const std::filesystem::path& executable);

}  // namespace morvane::folder
