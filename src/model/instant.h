#pragma once

#include <chrono>

namespace morvane {

// An absolute moment, in whole nanoseconds since 1970-01-01 00:00:00 UTC.
using Instant = std::chrono::sys_time<std::chrono::nanoseconds>;

using Seconds = std::chrono::duration<double>;

// Elapsed seconds from `from` to `to`, negative when `to` lies earlier.
[[nodiscard]] inline double secondsBetween(Instant from, Instant to) {
    return std::chrono::duration<double>(to - from).count();
}

}  // namespace morvane
