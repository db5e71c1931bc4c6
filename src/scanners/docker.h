#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// What Docker says it could give back, in its own order, each to be removed by Docker's own prune
// command. None when Docker is not installed, is not running or does not answer.
[[nodiscard]] std::vector<CleanupItem> scanDocker(const ScanContext& scan);

// The items of what "docker system df --format {{json .}}" wrote, in its order, one of a kind;
// lines that cannot be read are passed over.
[[nodiscard]] std::vector<CleanupItem> dockerItems(const std::filesystem::path& docker,
                                                   std::string_view output);

// The docker tool, in the places where it is installed; PATH is never searched.
[[nodiscard]] std::optional<std::filesystem::path> dockerPath(const ScanContext& scan);

// The bytes of "1.23GB (50%)" in decimal units, cut to a whole number; a unit that is not known
// counts as bytes. Nothing without a number at the start, or for one beyond an exabyte.
[[nodiscard]] std::optional<std::int64_t> parseDockerSize(std::string_view text);

}  // namespace morvane::CleanupScanner
