#pragma once

#include <algorithm>
#include <chrono>
#include <optional>

#include "model/instant.h"

namespace morvane {

inline constexpr std::chrono::hours betweenChecks{24};

// When to look for a new version next: a day after the last time, at once where that has passed or
// there was none. A last time that lies ahead, on a clock that was turned back, makes it a day.
[[nodiscard]] inline Instant nextCheck(std::optional<Instant> last, Instant now) {
    if (!last) return now;
    return std::clamp(*last, now - betweenChecks, now) + betweenChecks;
}

}  // namespace morvane
