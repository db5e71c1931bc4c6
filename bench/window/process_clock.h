#pragma once

#include <chrono>

namespace morvane::bench {

// Of all threads of this process, since its start.
[[nodiscard]] std::chrono::nanoseconds processorTime();
// Of the calling thread.
[[nodiscard]] std::chrono::nanoseconds threadTime();
// Since this process was started, to a hundredth of a second: the kernel says no more.
[[nodiscard]] std::chrono::nanoseconds sinceStart();

}  // namespace morvane::bench
