#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "moment.h"
#include "plan.h"

namespace morvane::sample {

/// A tree of many small files for benchmarks, spread over folders that are large on real disks.
struct BulkTree {
    std::int64_t entries = 0;  ///< folders and files to make
    std::int64_t bytes = 0;    ///< about what the files are to take in blocks; the rest are empty
    std::uint64_t seed = 0;
    Moment now = 0;
};

/// The folders that the tree hangs below; the plan has to make them.
void planBulkPlaces(Plan& plan);

/// Makes exactly `tree.entries` entries below the folder open as `root`, by descriptors and last
/// names alone; the process must have no umask. One line about what went wrong, or nothing.
[[nodiscard]] std::optional<std::string> growBulk(int root, const BulkTree& tree);

}  // namespace morvane::sample
