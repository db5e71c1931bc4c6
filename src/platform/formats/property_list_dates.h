#pragma once

#include <optional>

#include "model/instant.h"

namespace morvane {

// A property list counts the seconds since 2001-01-01 00:00:00 UTC in a double, which near the
// present resolves a tenth of a microsecond.

// To the nearest microsecond; nothing for what is not finite or lies outside the years 1678 to
// 2261.
[[nodiscard]] std::optional<Instant> instantFromListSeconds(double seconds);
[[nodiscard]] double listSecondsFromInstant(Instant instant);

}  // namespace morvane
