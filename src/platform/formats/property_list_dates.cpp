#include "platform/formats/property_list_dates.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace morvane {

namespace {

constexpr std::int64_t epoch = 978307200;                 // 2001-01-01 in seconds since 1970
constexpr double earliest = -9214560000.0 - 978307200.0;  // 1678-01-01
constexpr double latest = 9214646399.0 - 978307200.0;     // the last second of 2261

}  // namespace

std::optional<Instant> instantFromListSeconds(double seconds) {
    if (!std::isfinite(seconds)) return std::nullopt;
    seconds = std::clamp(seconds, earliest, latest);
    const double whole = std::floor(seconds);
    const std::int64_t microseconds = std::llround((seconds - whole) * 1e6);
    return Instant(std::chrono::seconds(static_cast<std::int64_t>(whole) + epoch) +
                   std::chrono::microseconds(microseconds));
}

double listSecondsFromInstant(Instant instant) {
    const auto whole = std::chrono::floor<std::chrono::seconds>(instant);
    const std::chrono::nanoseconds rest = instant - whole;
    return static_cast<double>(whole.time_since_epoch().count() - epoch) +
           static_cast<double>(rest.count()) / 1e9;
}

}  // namespace morvane
