#pragma once

#include <filesystem>
#include <vector>

#include "platform/folder/disk_root.h"

namespace morvane::folder {

// The first folder of "/Users" by the bytes of its name that is not "Shared" and neither begins
// with a dot nor stands in `hidden`; a link to a folder of the disk counts. Empty without one.
[[nodiscard]] std::filesystem::path defaultHome(const DiskRoot& root,
                                                const std::vector<std::filesystem::path>& hidden);

}  // namespace morvane::folder
