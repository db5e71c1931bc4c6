#pragma once

#include <optional>

#include "model/instant.h"

namespace morvane {

// A property list, and what else the system's own encoders write, counts the seconds since
// 2001-01-01 00:00:00 UTC in a double, which near the present resolves a tenth of a microsecond.

// To the nearest microsecond. What lies outside the years 1678 to 2261 is held back to their ends;
// nothing for what is not finite.
[[nodiscard]] std::optional<Instant> instantFromListSeconds(double seconds);
[[nodiscard]] double listSecondsFromInstant(Instant instant);

}  // namespace morvane
