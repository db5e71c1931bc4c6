#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/instant.h"

namespace morvane {

// Reads an ISO 8601 instant in its long form, "2026-11-21T12:00:00", then a fraction of a second or
// none, then "Z" or an offset like "+01:00". Digits of the fraction beyond nanoseconds are cut off.
// Nothing for any other form, for a day or an hour that does not exist (a leap second counts as
// such) and for an instant that Instant does not hold.
[[nodiscard]] std::optional<Instant> parseInstant(std::string_view text);

// "2026-11-21T12:00:00.000Z": in UTC, the milliseconds that have fully passed.
[[nodiscard]] std::string formatInstant(Instant instant);

}  // namespace morvane
