#pragma once

#include <cmath>
#include <numbers>

namespace morvane {

// Where one moving piece of art is at an instant, as a function of the clock alone: nothing is
// remembered between two frames.
struct PieceAt {
    double x = 0;  // of its centre
    double y = 0;
    double opacity = 1;
    double scale = 1;
};

// How far a piece that starts `delay` seconds after the clock's zero is into its period, from 0 to
// below 1; a clock before zero counts on backwards.
[[nodiscard]] inline double phaseOf(double time, double delay, double period) {
    const double phase = std::fmod(time - delay, period) / period;
    return phase < 0 ? phase + 1 : phase;
}

}  // namespace morvane
