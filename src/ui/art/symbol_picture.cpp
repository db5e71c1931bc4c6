#include "ui/art/symbol_picture.h"

#include "ui/art/pan.h"
#include "ui/art/sweep_glyph.h"
#include "ui/symbols/symbol_names.h"

namespace morvane {
namespace {

constexpr double sizeInGrid = 0.85;  // of type, in the square that holds a symbol beside it
constexpr double brandLineWidth = 1.8;

bool isBrand(const QString& name) {
    return name == QLatin1String(brandSymbol.data(), static_cast<qsizetype>(brandSymbol.size()));
}

}  // namespace

bool isSymbol(const QString& name) {
    return isBrand(name) || isDrawnSymbol(name.toStdString());
}

double symbolGrid(double pointSize) {
    return pointSize / sizeInGrid;
}

double symbolAspect(const QString& name) {
    return isBrand(name) ? 1 : drawnSymbolAspect(name.toStdString());
}

void paintSymbol(QPainter& painter, const QString& name, const QRectF& bounds, const QColor& color,
                 SymbolWeight weight) {
    if (!isBrand(name)) {
        drawSymbol(painter, name.toStdString(), bounds, color, weight);
        return;
    }
    painter.save();
    painter.translate(bounds.topLeft());
    painter.scale(bounds.width() / artSide, bounds.height() / artSide);
    paintSweepGlyph(painter, brandLineWidth, color);
    painter.restore();
}

QImage symbolImage(const QString& name, int pixels, const QColor& color, SymbolWeight weight) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = pixels * symbolAspect(name);
    paintSymbol(painter, name, QRectF((pixels - width) / 2, 0, width, pixels), color, weight);
    return image;
}

}  // namespace morvane
