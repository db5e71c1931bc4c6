#include <cmath>
#include <numbers>

#include "ui/theme/spring.h"

namespace morvane {

// The displacement x from the target obeys x'' + 2ζω x' + ω² x = 0; each case is its closed form.
SpringState springValue(double response, double damping, double from, double velocity,
                        double target, double t) {
    if (!(response > 0)) return {target, 0};
    if (!(t > 0)) return {from, velocity};
    const double omega = 2 * std::numbers::pi / response;
    const double zeta = damping > 0 ? damping : 0;
    const double x = from - target;

    if (std::abs(zeta - 1) < 1e-6) {
        const double b = velocity + omega * x;
        const double fade = std::exp(-omega * t);
        return {target + fade * (x + b * t), fade * (b - omega * (x + b * t))};
    }
    if (zeta < 1) {
        const double swing = omega * std::sqrt(1 - zeta * zeta);
        const double decay = zeta * omega;
        const double b = (velocity + decay * x) / swing;
        const double fade = std::exp(-decay * t);
        const double cosine = std::cos(swing * t);
        const double sine = std::sin(swing * t);
        return {target + fade * (x * cosine + b * sine),
                fade * ((b * swing - decay * x) * cosine - (x * swing + decay * b) * sine)};
    }
    const double root = omega * std::sqrt(zeta * zeta - 1);
    const double slow = root - zeta * omega;
    const double fast = -root - zeta * omega;
    const double b = (velocity - fast * x) / (slow - fast);
    const double c = x - b;
    return {target + b * std::exp(slow * t) + c * std::exp(fast * t),
            b * slow * std::exp(slow * t) + c * fast * std::exp(fast * t)};
}

}  // namespace morvane
