#include "ui/art/continuous_corners.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace morvane {
namespace {

constexpr double reachInRadii = 1.5;
// How far an arc of radius 1 stays away from both edges on the corner's diagonal.
constexpr double arcDepth = 1 - std::numbers::sqrt2 / 2;
constexpr int steps = 24;  // a chord is off the curve by less than a hundredth of its reach

struct Corner {
    double x, y;    // where the edges would meet
    double dx, dy;  // towards the rectangle's inside
};

}  // namespace

double cornerReach(double radius) {
    return reachInRadii * std::max(radius, 0.0);
}

QPainterPath continuousRect(const QRectF& rect, double radius) {
    QPainterPath path;
    const double half = std::min(rect.width(), rect.height()) / 2;
    const double turn = std::clamp(radius, 0.0, std::max(half, 0.0));
    if (turn <= 0) {
        path.addRect(rect);
        return path;
    }
    const double reach = std::min(cornerReach(turn), half);
    // The exponent of |x|^n + |y|^n = 1 that crosses the diagonal where the arc does.
    const double exponent = -std::numbers::ln2 / std::log(1 - arcDepth * turn / reach);
    const std::array corners{
        Corner{rect.left(), rect.top(), 1, 1}, Corner{rect.right(), rect.top(), -1, 1},
        Corner{rect.right(), rect.bottom(), -1, -1}, Corner{rect.left(), rect.bottom(), 1, -1}};
    for (const Corner& corner : corners) {
        // Clockwise: the corners with dx == dy are entered along their upright edge.
        const bool upright = corner.dx == corner.dy;
        for (int step = 0; step <= steps; ++step) {
            const double angle = std::numbers::pi / 2 * step / steps;
            const double along = std::pow(std::sin(angle), 2 / exponent);
            const double across = std::pow(std::max(std::cos(angle), 0.0), 2 / exponent);
            const double x = upright ? reach * (1 - across) : reach * (1 - along);
            const double y = upright ? reach * (1 - along) : reach * (1 - across);
            const QPointF point(corner.x + corner.dx * x, corner.y + corner.dy * y);
            if (path.elementCount() == 0)
                path.moveTo(point);
            else
                path.lineTo(point);
        }
    }
    path.closeSubpath();
    return path;
}

}  // namespace morvane
