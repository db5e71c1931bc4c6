#pragma once

#include <array>
#include <string_view>

#include "ui/art/motion.h"

namespace morvane {

inline constexpr int confettiCount = 18;
inline constexpr double confettiPeriod = 3.2;  // seconds
inline constexpr std::array<std::string_view, 4> confettiColors{"accent", "diskDocuments",
                                                                "diskMedia", "warmInk"};

// Half the side of piece `index`.
[[nodiscard]] constexpr double confettiHalf(int index) {
    return 3 + 1.5 * (index % 3);
}

// Three pieces of four are discs, the others squares with softened corners.
[[nodiscard]] constexpr double confettiRadius(int index) {
    return index % 4 == 0 ? 2 : confettiHalf(index);
}

// Piece `index` of the eighteen, `time` seconds on the clock, bursting from a space whose centre
// is (`cx`, `cy`), wider than high and rising as a whole.
[[nodiscard]] inline PieceAt confettiAt(int index, double time, double cx, double cy) {
    const double p = phaseOf(time, 0.12 * index, confettiPeriod);
    const double left = 1 - p;
    const double eased = 1 - left * left * left;
    const double angle = 2 * std::numbers::pi * index / confettiCount + 0.3;
    const double reach = 120 + 40 * (index % 4);
    return {.x = cx + 1.5 * reach * std::cos(angle) * eased,
            .y = cy + (reach * std::sin(angle) - 40) * eased,
            .opacity = p < 0.15 ? p / 0.15 : 1 - (p - 0.15) / 0.85,
            .scale = 0.4 + 0.6 * eased};
}

}  // namespace morvane
