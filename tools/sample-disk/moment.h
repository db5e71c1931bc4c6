#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvane::sample {

/// An instant in whole seconds since 1970 UTC. File times on the sample disk have no fraction,
/// so that file systems with coarse times carry the same disk.
using Moment = std::int64_t;

inline constexpr Moment secondsADay = 86'400;

/// The present moment, its fraction cut off.
[[nodiscard]] Moment presentMoment();

/// Reads "2026-11-21T12:00:00Z", with or without a fraction (cut off), with "Z" or an offset
/// such as "+01:00". Nothing for any other text and for days that no calendar has.
[[nodiscard]] std::optional<Moment> parseMoment(std::string_view text);

/// "2026-11-21T12:00:00.000Z".
[[nodiscard]] std::string momentText(Moment moment);

/// "2026-11-21": the day in UTC.
[[nodiscard]] std::string dayText(Moment moment);

}  // namespace morvane::sample
