#pragma once

#include <cstdint>

#include "plan.h"

namespace morvane::sample {

/// What a file takes on disk in whole blocks of 4,096 bytes.
[[nodiscard]] constexpr std::int64_t inBlocks(std::int64_t bytes) {
    constexpr std::int64_t block = 4'096;
    return (bytes + block - 1) / block * block;
}

/// Settles the length of every file, so that together they take about `target` bytes in blocks.
/// All grow and shrink by one factor, but none below its floor. On a target of 900 MB or more the
/// few chosen large files also stay above 100 MB, on one of 6 GB or more all large ones keep their
/// size. A target below what the floors take gives the floors.
void fitSizes(Plan& plan, std::int64_t target);

/// What all files take in blocks after fitSizes; a hard link adds nothing.
[[nodiscard]] std::int64_t bytesOnDisk(const Plan& plan);

}  // namespace morvane::sample
