#include "ui/art/hatching.h"

namespace morvane {

void paintHatching(QPainter& painter, QSizeF size, double spacing, double lineWidth,
                   const QColor& color) {
    if (spacing <= 0) return;  // the lines would never end
    painter.save();
    painter.setClipRect(QRectF(QPointF(), size));
    painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::FlatCap));
    const double height = size.height();
    for (int line = 0;; ++line) {
        const double x = -height + line * spacing;
        if (x >= size.width() + height) break;
        painter.drawLine(QPointF(x, height), QPointF(x + height, 0));
    }
    painter.restore();
}

Hatching::Hatching(QQuickItem* parent) : PictureItem(parent) {
    connect(this, &Hatching::linesChanged, this, &QQuickItem::update);
}

Picture Hatching::picture() const {
    return {.key = QStringLiteral("hatching %1 %2 %3 %4 %5")
                       .arg(width())
                       .arg(height())
                       .arg(spacing_)
                       .arg(lineWidth_)
                       .arg(color_.name(QColor::HexArgb)),
            .bounds = QRectF(0, 0, width(), height()),
            .paint = [size = QSizeF(width(), height()), spacing = spacing_, line = lineWidth_,
                      color = color_](QPainter& painter) {
                paintHatching(painter, size, spacing, line, color);
            }};
}

}  // namespace morvane
