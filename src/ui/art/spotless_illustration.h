#pragma once

#include <QPainter>
#include <QPainterPath>

namespace morvane {

// A pan with nothing left to sweep, in the square of 100.
void paintSpotlessIllustration(QPainter& painter, bool dark);

// A star of four tips, each `reach` away from the centre.
[[nodiscard]] QPainterPath sparkle(QPointF centre, double reach);

}  // namespace morvane
