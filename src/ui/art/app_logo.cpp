#include "ui/art/app_logo.h"

#include <QRadialGradient>
#include <array>
#include <cmath>

#include "ui/art/art_color.h"
#include "ui/art/continuous_corners.h"
#include "ui/art/pan.h"
#include "ui/art/soft_shadow.h"

namespace morvane {
namespace {

constexpr QRectF plate{8, 8, 84, 84};
constexpr double plateRadius = 19;
constexpr double panScale = 0.84;
constexpr QPointF panPlace{8, 8};

QColor shade(double red, double green, double blue, double alpha = 1) {
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                            static_cast<float>(blue), static_cast<float>(alpha));
}
QColor white(double alpha) {
    return shade(1, 1, 1, alpha);
}
const QColor& ember() {
    static const QColor color = shade(0.494, 0.133, 0);
    return color;
}

void paintPlate(QPainter& painter, bool detailed) {
    const QPainterPath shape = continuousRect(plate, plateRadius);
    QRadialGradient ground(QPointF(73.5, 79.4), 84);
    ground.setColorAt(0, shade(1, 0.541, 0.298));
    ground.setColorAt(0.55, artColor("accent", false));
    ground.setColorAt(1, ember());
    painter.fillPath(shape, ground);
    if (!detailed) return;

    QRadialGradient highlight(QPointF(31.5, 14.7), 62);
    // Of the ground's own hue: white would turn it grey.
    highlight.setColorAt(0, shade(1, 0.63, 0.42, 0.62));
    highlight.setColorAt(0.45, shade(1, 0.55, 0.32, 0.22));
    highlight.setColorAt(1, shade(1, 0.5, 0.25, 0));
    painter.fillPath(shape, highlight);
}

// Caught by the plate's rim: bright above, spent before it comes round to the bottom.
void paintRim(QPainter& painter) {
    constexpr double inset = 0.4;
    QLinearGradient light(0, plate.top(), 0, plate.bottom());
    light.setColorAt(0, white(0.5));
    light.setColorAt(0.5, white(0.12));
    light.setColorAt(1, white(0.06));
    painter.strokePath(
        continuousRect(plate.adjusted(inset, inset, -inset, -inset), plateRadius - inset),
        QPen(QBrush(light), 2 * inset));
}

void paintShadow(QPainter& painter, const QPainterPath& pan) {
    constexpr QPointF offset{3.5, -3.5};
    constexpr double deviation = 2.6;
    const QTransform toDevice = painter.transform();
    const double scale = std::hypot(toDevice.m11(), toDevice.m12());
    const int side = static_cast<int>(std::ceil(artSide * scale));
    QImage mask(side, side, QImage::Format_Alpha8);
    mask.fill(0);
    QPainter caster(&mask);
    caster.setRenderHint(QPainter::Antialiasing);
    caster.scale(scale, scale);
    caster.translate(offset);
    caster.fillPath(pan, Qt::black);
    caster.end();
    QColor color = ember();
    color.setAlphaF(0.42F);
    painter.save();
    painter.setClipPath(continuousRect(plate, plateRadius));
    painter.scale(1 / scale, 1 / scale);
    painter.drawImage(0, 0, tinted(blurred(mask, deviation * scale), color));
    painter.restore();
}

void paintCrumbs(QPainter& painter) {
    struct Crumb {
        QPointF centre;
        double diameter;
        double opacity;
    };
    constexpr std::array crumbs{Crumb{{18.4, 64.4}, 7.2, 0.95}, Crumb{{11.6, 57.6}, 4.8, 0.75},
                                Crumb{{21.2, 54.2}, 3.6, 0.85}, Crumb{{9.4, 68.4}, 3.2, 0.6}};
    painter.setPen(Qt::NoPen);
    for (const Crumb& crumb : crumbs) {
        painter.setBrush(shade(1, 0.922, 0.867, crumb.opacity));
        painter.drawEllipse(crumb.centre, crumb.diameter / 2, crumb.diameter / 2);
    }
}

// A line from the plate's edge, seen where the pan catches it.
void paintLineOfLight(QPainter& painter, const QPainterPath& pan) {
    painter.save();
    painter.setClipPath(pan);
    painter.setPen(QPen(white(0.35), 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(8, 64), QPointF(66.8, 64));
    painter.restore();
}

}  // namespace

void paintAppLogo(QPainter& painter, bool detailed) {
    painter.save();
    paintPlate(painter, detailed);
    QTransform place = QTransform::fromTranslate(panPlace.x(), panPlace.y());
    place.scale(panScale, panScale);
    const QPainterPath pan = place.map(panShape());
    if (detailed) paintShadow(painter, pan);

    QLinearGradient metal(place.map(QPointF(0, 20.9)), place.map(QPointF(0, 72)));
    metal.setColorAt(0, white(0.97));
    metal.setColorAt(1, shade(1, 0.922, 0.867, 0.72));
    painter.fillPath(pan, metal);
    if (detailed) {
        paintLineOfLight(painter, pan);
        painter.save();
        painter.setTransform(place, true);
        paintCrumbs(painter);
        painter.restore();
        paintRim(painter);
    }
    painter.restore();
}

}  // namespace morvane
