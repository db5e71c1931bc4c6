#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>

namespace morvane {

// The outline of the brand's mark: the pan and its handle in one closed line.
[[nodiscard]] QPainterPath sweepGlyphLine();

// The mark in the square of 100. `lineWidth` is measured on a mark of size 24.
void paintSweepGlyph(QPainter& painter, double lineWidth, const QColor& color);

}  // namespace morvane
