#include "ui/art/box_painting.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "ui/art/continuous_corners.h"
#include "ui/art/soft_shadow.h"

namespace morvane {
namespace {

bool hasShadow(const BoxLook& look) {
    return look.shadow.alpha() > 0;
}

int inPixels(double length, double pixelRatio) {
    return static_cast<int>(std::lround(length * pixelRatio));
}

// The painted length and what of either end of it must not be stretched.
struct Span {
    int length = 0;
    int fixed = 0;
};
Span spanFor(int box, int margin, int bent) {
    const int length = std::min(box, 2 * bent + 1);
    return {length + 2 * margin, margin + (length - 1) / 2};
}

QImage shadowOf(const BoxLook& look, const BoxPatch& patch, const QPainterPath& box,
                double pixelRatio) {
    QImage mask(patch.image, QImage::Format_Alpha8);
    mask.fill(0);
    QPainter caster(&mask);
    caster.setRenderHint(QPainter::Antialiasing);
    caster.translate(0, inPixels(look.shadowOffset, pixelRatio));
    caster.fillPath(box, Qt::black);
    caster.end();
    return tinted(blurred(mask, look.shadowRadius * pixelRatio), look.shadow);
}

}  // namespace

BoxPatch patchFor(const BoxLook& look, QSize box, double pixelRatio) {
    const int soft = hasShadow(look) ? shadowReach(look.shadowRadius * pixelRatio) : 0;
    const int shift = hasShadow(look) ? std::abs(inPixels(look.shadowOffset, pixelRatio)) : 0;
    const int margin = soft + shift;
    const double side = std::min(box.width(), box.height());
    const double radius = std::min(look.radius * pixelRatio, side / 2);
    const int bent = static_cast<int>(std::ceil(cornerReach(radius))) + margin + 1;
    const Span across = spanFor(std::max(box.width(), 1), margin, bent);
    const Span down = spanFor(std::max(box.height(), 1), margin, bent);
    return {{across.length, down.length}, margin, across.fixed, down.fixed};
}

QImage paintBox(const BoxLook& look, const BoxPatch& patch, double pixelRatio) {
    QImage image(patch.image, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QRectF rect = QRectF(QPointF(), QSizeF(patch.image))
                            .adjusted(patch.margin, patch.margin, -patch.margin, -patch.margin);
    const double radius = look.radius * pixelRatio;
    const QPainterPath box = continuousRect(rect, radius);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasShadow(look)) {
        painter.drawImage(0, 0, shadowOf(look, patch, box, pixelRatio));
        if (look.fill.alpha() < 255) {
            painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
            painter.fillPath(box, Qt::black);
            painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        }
    }
    painter.fillPath(box, look.fill);
    if (look.edgeWidth > 0 && look.edge.alpha() > 0) {
        const int width = std::max(inPixels(look.edgeWidth, pixelRatio), 1);
        const QRectF inside = rect.adjusted(width, width, -width, -width);
        QPainterPath ring = box;
        ring.setFillRule(Qt::OddEvenFill);
        if (inside.isValid()) ring.addPath(continuousRect(inside, radius - width));
        painter.fillPath(ring, look.edge);
    }
    return image;
}

QString keyOf(const BoxLook& look, const BoxPatch& patch, double pixelRatio) {
    const auto number = [](double value) { return QString::number(value, 'g', 8); };
    return QStringList{QStringLiteral("box"),
                       look.fill.name(QColor::HexArgb),
                       number(look.radius),
                       look.edge.name(QColor::HexArgb),
                       number(look.edgeWidth),
                       look.shadow.name(QColor::HexArgb),
                       number(look.shadowRadius),
                       number(look.shadowOffset),
                       QString::number(patch.image.width()),
                       QString::number(patch.image.height()),
                       number(pixelRatio)}
        .join(u' ');
}

}  // namespace morvane
