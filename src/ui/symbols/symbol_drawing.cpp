#include "ui/symbols/symbol_drawing.h"

#include <QFile>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "ui/symbols/symbol_names.h"

namespace morvane {
namespace {

QByteArray strokeOf(SymbolWeight weight) {
    switch (weight) {
        case SymbolWeight::regular:
            return "2";
        case SymbolWeight::semibold:
            return "2.4";
        case SymbolWeight::bold:
            return "2.8";
        case SymbolWeight::black:
            return "3.2";
    }
    return "2";
}

QByteArray drawingOf(std::string_view name, SymbolWeight weight) {
    QFile file(QStringLiteral(":/morvane/symbols/drawings/%1.svg")
                   .arg(QLatin1String(name.data(), static_cast<qsizetype>(name.size()))));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().replace("stroke-width=\"2\"",
                                  "stroke-width=\"" + strokeOf(weight) + "\"");
}

// A drawing is black where there is ink and white where ink is taken away again.
void takeInk(QImage& drawing, const QColor& color) {
    const double opacity = color.alphaF();
    for (int y = 0; y < drawing.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(drawing.scanLine(y));
        for (int x = 0; x < drawing.width(); ++x) {
            const int ink = std::max(qAlpha(line[x]) - qRed(line[x]), 0);
            const auto alpha = static_cast<int>(std::lround(ink * opacity));
            line[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha));
        }
    }
}

}  // namespace

SymbolWeight symbolWeight(const QString& name) {
    if (name == u"semibold") return SymbolWeight::semibold;
    if (name == u"bold") return SymbolWeight::bold;
    if (name == u"black") return SymbolWeight::black;
    return SymbolWeight::regular;
}

bool isDrawnSymbol(std::string_view name) {
    return std::find(symbolNames.begin(), symbolNames.end(), name) != symbolNames.end();
}

double drawnSymbolAspect(std::string_view name) {
    // It stands beside words and at the end of rows, where a whole square would part it from them.
    return name == "chevron.right" ? 14.0 / 24 : 1;
}

void drawSymbol(QPainter& painter, std::string_view name, const QRectF& bounds, const QColor& color,
                SymbolWeight weight) {
    if (!isDrawnSymbol(name) || bounds.isEmpty()) return;
    QSvgRenderer renderer(drawingOf(name, weight));
    const double scale = std::hypot(painter.transform().m11(), painter.transform().m12());
    const auto pixels = [scale](double length) {
        return static_cast<int>(std::ceil(length * scale - 1e-6));
    };
    QImage drawing(pixels(bounds.width()), pixels(bounds.height()),
                   QImage::Format_ARGB32_Premultiplied);
    drawing.fill(Qt::transparent);
    QPainter hand(&drawing);
    hand.setRenderHint(QPainter::Antialiasing);
    renderer.render(&hand, QRectF(QPointF(), bounds.size() * scale));
    hand.end();
    takeInk(drawing, color);
    painter.drawImage(QRectF(bounds.topLeft(), QSizeF(drawing.size()) / scale), drawing);
}

}  // namespace morvane
