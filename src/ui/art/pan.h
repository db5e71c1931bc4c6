#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>

namespace morvane {

// The side of the square in which all brand art is drawn; y grows downwards.
inline constexpr double artSide = 100;

// The dustpan with its handle as one outline, so that a translucent filling is even.
[[nodiscard]] QPainterPath panShape();

// The lower end of the pan's lip, which stays on the floor while the pan rocks.
inline constexpr QPointF panLip{32, 72};

// The pan in one colour. The painter is left as it was.
void paintPan(QPainter& painter, const QColor& color);

}  // namespace morvane
