#include "ui/art/symbol.h"

#include <cmath>

#include "ui/art/symbol_picture.h"
#include "ui/symbols/symbol_drawing.h"

namespace morvane {

Symbol::Symbol(QQuickItem* parent) : PictureItem(parent) {
    changed();
}

void Symbol::setName(const QString& name) {
    if (name == name_) return;
    name_ = name;
    changed();
}

void Symbol::setPointSize(qreal size) {
    if (size == size_) return;
    size_ = size;
    changed();
}

void Symbol::setColor(const QColor& color) {
    if (color == color_) return;
    color_ = color;
    changed();
}

void Symbol::setWeight(const QString& weight) {
    if (weight == weight_) return;
    weight_ = weight;
    changed();
}

void Symbol::changed() {
    const double grid = symbolGrid(size_);
    setImplicitSize(grid * symbolAspect(name_), grid);
    update();
    Q_EMIT symbolChanged();
}

Picture Symbol::picture() const {
    // Whole device pixels, so that upright and level strokes of all symbols meet the grid alike.
    const double ratio = pixelRatio();
    const double grid = std::round(symbolGrid(size_) * ratio) / ratio;
    const QSizeF drawn(std::round(grid * symbolAspect(name_) * ratio) / ratio, grid);
    if (!isSymbol(name_)) return {};
    const QRectF bounds(QPointF(width() - drawn.width(), height() - drawn.height()) / 2, drawn);
    return {.key = QStringLiteral("symbol %1 %2 %3 %4")
                       .arg(name_)
                       .arg(grid)
                       .arg(color_.name(QColor::HexArgb), weight_),
            .bounds = bounds,
            .paint = [name = name_, bounds, color = color_, weight = weight_](QPainter& painter) {
                paintSymbol(painter, name, bounds, color, symbolWeight(weight));
            }};
}

}  // namespace morvane
