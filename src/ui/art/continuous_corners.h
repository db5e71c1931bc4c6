#pragma once

#include <QPainterPath>
#include <QRectF>

namespace morvane {

// A rectangle whose corners turn like a superellipse: the curvature rises from nothing along the
// edge instead of jumping as it does where a circle's arc begins. Every corner passes its diagonal
// where an arc of `radius` would, and reaches one and a half radii along its edges; where the
// rectangle is too short for that it approaches the arc, and half the shorter side as radius gives
// a true capsule. A larger radius is taken for that one, a negative one for 0.
[[nodiscard]] QPainterPath continuousRect(const QRectF& rect, double radius);

// How far from a corner, along an edge, its curve reaches when there is room.
[[nodiscard]] double cornerReach(double radius);

}  // namespace morvane
