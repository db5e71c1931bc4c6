#pragma once

#include <cstddef>

namespace morvane {

// How many sweeps the history remembers.
inline constexpr std::size_t mostHistoryEntries = 10;

}  // namespace morvane
