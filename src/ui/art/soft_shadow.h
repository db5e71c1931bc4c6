#pragma once

#include <QImage>

namespace morvane {

// An image of alpha values (Format_Alpha8), blurred as by a Gaussian of `deviation` pixels; what
// lies beyond the image counts as empty. A deviation of 0 or less leaves it as it is.
[[nodiscard]] QImage blurred(const QImage& alpha, double deviation);

// How many pixels beyond its caster a shadow of this deviation is still seen.
[[nodiscard]] int shadowReach(double deviation);

// A premultiplied image of `color` with the alpha of `mask` (Format_Alpha8).
[[nodiscard]] QImage tinted(const QImage& mask, const QColor& color);

}  // namespace morvane
