#include "fit_sizes.h"

#include <algorithm>

namespace morvane::sample {
namespace {

/// The factor is a whole number of these parts, so that no rounding differs between machines.
constexpr unsigned factorBits = 16;
constexpr std::int64_t largestFactor = std::int64_t{1} << 30U;

constexpr std::int64_t roomForSomeLarge = 900'000'000;
constexpr std::int64_t roomForAllLarge = 6'000'000'000;
constexpr std::int64_t largeFile = 102'000'000;

/// The length below which a file does not shrink on a disk of this size.
std::int64_t floorOf(const Entry& entry, std::int64_t target) {
    if (entry.keepsSize && target >= roomForAllLarge) {
        return std::max(entry.nominal, largeFile + entry.nominal / 50);
    }
    if (entry.staysLarge && target >= roomForSomeLarge) {
        return largeFile + entry.nominal / 50;
    }
    return entry.floor;
}

std::int64_t lengthOf(const Entry& entry, std::int64_t factor, std::int64_t target) {
    const auto content = static_cast<std::int64_t>(entry.content.size());
    if (entry.nominal == 0) {
        return content;
    }
    const std::int64_t scaled = entry.nominal * factor >> factorBits;
    return std::max({content, floorOf(entry, target), scaled});
}

std::int64_t totalWith(const Plan& plan, std::int64_t factor, std::int64_t target) {
    std::int64_t total = 0;
    for (const Entry& entry : plan.entries()) {
        if (entry.kind == EntryKind::file) {
            total += inBlocks(lengthOf(entry, factor, target));
        }
    }
    return total;
}

}  // namespace

void fitSizes(Plan& plan, std::int64_t target) {
    std::int64_t low = 0;
    std::int64_t high = largestFactor;
    while (low < high) {
        const std::int64_t middle = low + (high - low + 1) / 2;
        if (totalWith(plan, middle, target) <= target) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    for (Entry& entry : plan.entries()) {
        if (entry.kind == EntryKind::file) {
            entry.bytes = lengthOf(entry, low, target);
        }
    }
}

std::int64_t bytesOnDisk(const Plan& plan) {
    std::int64_t total = 0;
    for (const Entry& entry : plan.entries()) {
        total += inBlocks(entry.bytes);
    }
    return total;
}

}  // namespace morvane::sample
