#pragma once

#include <array>
#include <string_view>

#include "ui/art/motion.h"

namespace morvane {

inline constexpr double sweepingWidth = 280;
inline constexpr double sweepingHeight = 220;
inline constexpr double sweepingPeriod = 2.6;  // seconds

// Where a crumb starts, from the pan's mouth, and its radius.
struct Crumb {
    double x = 0;
    double y = 0;
    double r = 0;
};
inline constexpr std::array sweepingCrumbs{
    Crumb{-120, -50, 6}, Crumb{-150, 6, 4},  Crumb{-96, 30, 5},  Crumb{-170, -24, 3.5},
    Crumb{-130, 48, 4},  Crumb{-84, -64, 3}, Crumb{-160, 36, 5}, Crumb{-110, -10, 3}};
inline constexpr std::array<std::string_view, 3> crumbColors{"warmInk", "accent", "diskMedia"};

// Crumb `index` of the eight, `time` seconds on the clock: it fades in where it lies, slides to the
// mouth of the pan and vanishes there.
[[nodiscard]] inline PieceAt crumbAt(int index, double time) {
    constexpr double mouthX = 136;
    constexpr double mouthY = 146;
    const Crumb& crumb = sweepingCrumbs[static_cast<std::size_t>(index)];
    const double p = phaseOf(time, 0.33 * index, sweepingPeriod);
    const double left = 2 - 2 * p;
    const double eased = p < 0.5 ? 4 * p * p * p : 1 - left * left * left / 2;
    const double late = p > 0.75 ? 4 * (p - 0.75) : 0;
    return {.x = mouthX + crumb.x * (1 - eased),
            .y = mouthY + crumb.y * (1 - eased),
            .opacity = p < 0.15 ? p / 0.15 : 1 - late,
            .scale = 1 - 0.65 * late * eased};
}

// The pan's turn in degrees, from 0 to −6 and back once a period.
[[nodiscard]] inline double panAngle(double time) {
    return -3 * (1 - std::cos(2 * std::numbers::pi * time / sweepingPeriod));
}

}  // namespace morvane
