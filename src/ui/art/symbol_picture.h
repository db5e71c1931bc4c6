#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QString>

#include "ui/symbols/symbol_drawing.h"

namespace morvane {

// Whether `name` is drawn: one of the symbols or the brand's own name.
[[nodiscard]] bool isSymbol(const QString& name);

// The side of the grid for a symbol of this size of type.
[[nodiscard]] double symbolGrid(double pointSize);

// The width of a symbol as a part of its height, 1 for most.
[[nodiscard]] double symbolAspect(const QString& name);

// Fills `bounds` with the symbol. Nothing is painted for a name that is not drawn.
void paintSymbol(QPainter& painter, const QString& name, const QRectF& bounds, const QColor& color,
                 SymbolWeight weight);

// The symbol as an image of `pixels` square for menus and the tray; transparent for a name that is
// not drawn.
[[nodiscard]] QImage symbolImage(const QString& name, int pixels, const QColor& color,
                                 SymbolWeight weight = SymbolWeight::regular);

}  // namespace morvane
