#pragma once

#include <filesystem>

#include "platform/formats/property_list.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The dictionary that a property list file of at most 32 MiB holds; an empty one when there is no
// such file, it cannot be read or holds anything else.
[[nodiscard]] PropertyList::Dictionary readPlist(const ScanContext& scan,
                                                 const std::filesystem::path& url);

}  // namespace morvane::CleanupScanner
