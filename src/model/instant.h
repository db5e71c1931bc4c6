#pragma once

#include <chrono>

namespace morvane {

// An absolute moment, in whole nanoseconds since 1970-01-01 00:00:00 UTC.
using Instant = std::chrono::sys_time<std::chrono::nanoseconds>;

using Seconds = std::chrono::duration<double>;

}  // namespace morvane
