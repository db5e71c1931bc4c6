#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/formats/property_list.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// The dictionary that a property list file of at most 32 MiB holds; an empty one when there is no
// such file, it cannot be read or holds anything else.
[[nodiscard]] PropertyList readPlist(const ScanContext& scan, const std::filesystem::path& url);

// The text, the date under `key`; nothing where there is none or it is of another type.
[[nodiscard]] std::optional<std::string> textIn(const PropertyList& dictionary,
                                                std::string_view key);
[[nodiscard]] std::optional<Instant> dateIn(const PropertyList& dictionary, std::string_view key);

}  // namespace morvane::CleanupScanner
