#include "ui/art/art_items.h"

#include <utility>

#include "ui/art/app_logo.h"
#include "ui/art/idle_illustration.h"
#include "ui/art/pan.h"
#include "ui/art/spotless_illustration.h"
#include "ui/art/sweep_glyph.h"

namespace morvane {

ArtItem::ArtItem(double side, QQuickItem* parent) : PictureItem(parent), side_(side) {
    setImplicitSize(side, side);
}

void ArtItem::setSide(qreal side) {
    if (side == side_) return;
    side_ = side;
    setImplicitSize(side, side);
    update();
    Q_EMIT sideChanged();
}

Picture ArtItem::square(const QString& name, std::function<void(QPainter&)> paint) const {
    const double scale = side_ / artSide;
    return {.key = QStringLiteral("%1 %2").arg(name).arg(side_),
            .bounds = QRectF((width() - side_) / 2, (height() - side_) / 2, side_, side_),
            .paint = [scale, corner = QPointF(width() - side_, height() - side_) / 2,
                      draw = std::move(paint)](QPainter& painter) {
                painter.translate(corner);
                painter.scale(scale, scale);
                draw(painter);
            }};
}

AppLogo::AppLogo(QQuickItem* parent) : ArtItem(64, parent) {
    connect(this, &AppLogo::detailedChanged, this, &QQuickItem::update);
}

Picture AppLogo::picture() const {
    return square(detailed_ ? QStringLiteral("logo+") : QStringLiteral("logo"),
                  [detailed = detailed_](QPainter& painter) { paintAppLogo(painter, detailed); });
}

SweepGlyph::SweepGlyph(QQuickItem* parent) : ArtItem(24, parent) {
    connect(this, &SweepGlyph::lineChanged, this, &QQuickItem::update);
}

Picture SweepGlyph::picture() const {
    return square(QStringLiteral("glyph %1 %2").arg(lineWidth_).arg(color_.name(QColor::HexArgb)),
                  [width = lineWidth_, color = color_](QPainter& painter) {
                      paintSweepGlyph(painter, width, color);
                  });
}

Illustration::Illustration(const QString& name, Painting painting, double side, QQuickItem* parent)
    : ArtItem(side, parent), name_(name), painting_(painting) {
    connect(this, &Illustration::darkChanged, this, &QQuickItem::update);
}

Picture Illustration::picture() const {
    return square(name_ + (dark_ ? QStringLiteral(" dark") : QString()),
                  [paint = painting_, dark = dark_](QPainter& painter) { paint(painter, dark); });
}

IdleIllustration::IdleIllustration(QQuickItem* parent)
    : Illustration(QStringLiteral("idle"), &paintIdleIllustration, 200, parent) {}

SpotlessIllustration::SpotlessIllustration(QQuickItem* parent)
    : Illustration(QStringLiteral("spotless"), &paintSpotlessIllustration, 150, parent) {}

}  // namespace morvane
