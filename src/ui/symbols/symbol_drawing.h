#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <string_view>

namespace morvane {

// How heavy the strokes are. Only what is drawn in the regular stroke changes; dots and fillings
// stay.
enum class SymbolWeight : std::uint8_t { regular, semibold, bold, black };

// The weight of this name, as type has them; regular for any other.
[[nodiscard]] SymbolWeight symbolWeight(const QString& name);

[[nodiscard]] bool isDrawnSymbol(std::string_view name);

// The width of a drawing as a part of its height; 1 for an unknown name.
[[nodiscard]] double drawnSymbolAspect(std::string_view name);

// Fills `bounds`, which should have the drawing's aspect, with the symbol in `color`, as sharp as
// the painter's scale allows. An unknown name paints nothing.
void drawSymbol(QPainter& painter, std::string_view name, const QRectF& bounds, const QColor& color,
                SymbolWeight weight);

}  // namespace morvane
