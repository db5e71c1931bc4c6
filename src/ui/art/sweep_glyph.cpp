#include "ui/art/sweep_glyph.h"

#include <cmath>
#include <numbers>

#include "ui/art/pan.h"

namespace morvane {
namespace {

constexpr double nominalSize = 24;
constexpr QPointF tipCentre{87.3, 23.8};
constexpr double tipRadius = 3.6;
constexpr QPointF tipStart{89.6, 26.6};
constexpr QPointF lip{33, 62};

double degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

// Where the line from the lip touches the round tip, as an angle counted against the clock from
// three o'clock.
double touchingAngle() {
    const QPointF toLip = lip - tipCentre;
    const double away = std::hypot(toLip.x(), toLip.y());
    return degrees(std::atan2(-toLip.y(), toLip.x()) - std::acos(tipRadius / away));
}

}  // namespace

QPainterPath sweepGlyphLine() {
    QPainterPath line;
    line.moveTo(30, 72);
    line.lineTo(72, 72);
    line.quadTo(77, 72, 77, 67);
    line.lineTo(77, 39.5);
    line.lineTo(tipStart);
    const QPointF out = tipStart - tipCentre;
    const double start = degrees(std::atan2(-out.y(), out.x()));
    double sweep = touchingAngle() - start;
    while (sweep < 0) sweep += 360;
    line.arcTo(
        QRectF(tipCentre.x() - tipRadius, tipCentre.y() - tipRadius, 2 * tipRadius, 2 * tipRadius),
        start, sweep);
    line.lineTo(lip);
    line.quadTo(25, 68, 30, 72);
    line.closeSubpath();
    return line;
}

void paintSweepGlyph(QPainter& painter, double lineWidth, const QColor& color) {
    painter.strokePath(sweepGlyphLine(), QPen(color, lineWidth * artSide / nominalSize,
                                              Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

}  // namespace morvane
