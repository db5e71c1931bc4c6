#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <cstdlib>
#include <functional>

namespace morvane {

// A painting of the square of 100, on nothing, with this many pixels for each unit.
inline QImage paintedSquare(int scale, const std::function<void(QPainter&)>& paint) {
    QImage image(100 * scale, 100 * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    paint(painter);
    return image;
}

// How far apart two colours are in the channel where they differ most.
inline int apart(const QColor& one, const QColor& other) {
    int most = 0;
    for (const int difference : {one.red() - other.red(), one.green() - other.green(),
                                 one.blue() - other.blue(), one.alpha() - other.alpha()})
        most = std::max(most, std::abs(difference));
    return most;
}

}  // namespace morvane
