#include "ui/art/scenes.h"

#include "ui/art/art_color.h"
#include "ui/art/confetti_motion.h"
#include "ui/art/pan.h"
#include "ui/art/sweeping_motion.h"

namespace morvane {
namespace {

constexpr double canvasSide = 200;
constexpr QPointF canvasPlace{70, 10};
constexpr double canvasScale = canvasSide / artSide;
constexpr int discs = 1;  // the pieces before the pan
constexpr int pans = 1;

Picture disc(double radius, const QColor& color) {
    // A pixel of room around it, so that its rim is smooth wherever it is moved.
    const double room = radius + 1;
    return {.key = QStringLiteral("disc %1 %2").arg(radius).arg(color.name(QColor::HexArgb)),
            .bounds = QRectF(-room, -room, 2 * room, 2 * room),
            .paint = [radius, color](QPainter& painter) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(color);
                painter.drawEllipse(QPointF(), radius, radius);
            }};
}

// The pan with its lip in the origin, about which it rocks.
Picture sweepingPan(const QColor& color) {
    const QTransform place = QTransform::fromTranslate(-panLip.x(), -panLip.y()) *
                             QTransform::fromScale(canvasScale, canvasScale);
    return {.key = QStringLiteral("pan ") + color.name(QColor::HexArgb),
            .bounds = place.mapRect(QRectF(24, 28, 70, 48)),
            .paint = [place, color](QPainter& painter) {
                painter.setTransform(place, true);
                paintPan(painter, color);
            }};
}

Pose poseOf(const PieceAt& at) {
    return {{at.x, at.y}, at.scale, at.opacity};
}

}  // namespace

SweepingScene::SweepingScene(QQuickItem* parent) : MovingItem(parent) {
    setImplicitSize(sweepingWidth, sweepingHeight);
}

int SweepingScene::pieces() const {
    return discs + pans + static_cast<int>(sweepingCrumbs.size());
}

Picture SweepingScene::piece(int index) const {
    if (index < discs) return disc(canvasSide / 2, artColor("warm", dark()));
    if (index < discs + pans) return sweepingPan(artColor("accent", dark()));
    const auto crumb = static_cast<std::size_t>(index - discs - pans);
    return disc(sweepingCrumbs[crumb].r, artColor(crumbColors[crumb % crumbColors.size()], dark()));
}

Pose SweepingScene::pose(int index) const {
    if (index < discs) return {.at = {sweepingWidth / 2, sweepingHeight / 2}};
    if (index < discs + pans)
        return {.at = canvasPlace + panLip * canvasScale, .degrees = panAngle(time())};
    return poseOf(crumbAt(index - discs - pans, time()));
}

ConfettiScene::ConfettiScene(QQuickItem* parent) : MovingItem(parent) {}

int ConfettiScene::pieces() const {
    return confettiCount;
}

Picture ConfettiScene::piece(int index) const {
    const double half = confettiHalf(index);
    const double radius = confettiRadius(index);
    const QColor color =
        artColor(confettiColors[static_cast<std::size_t>(index) % confettiColors.size()], dark());
    return {.key = QStringLiteral("confetti %1 %2 %3")
                       .arg(half)
                       .arg(radius)
                       .arg(color.name(QColor::HexArgb)),
            .bounds = QRectF(-half - 1, -half - 1, 2 * half + 2, 2 * half + 2),
            .paint = [half, radius, color](QPainter& painter) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(color);
                painter.drawRoundedRect(QRectF(-half, -half, 2 * half, 2 * half), radius, radius);
            }};
}

Pose ConfettiScene::pose(int index) const {
    return poseOf(confettiAt(index, time(), width() / 2, height() / 2));
}

void ConfettiScene::geometryChange(const QRectF& now, const QRectF& before) {
    if (now.size() != before.size()) update();
    MovingItem::geometryChange(now, before);
}

}  // namespace morvane
