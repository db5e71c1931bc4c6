#pragma once

#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

namespace morvane {

// How a box looks; lengths are logical pixels.
struct BoxLook {
    QColor fill = Qt::transparent;
    double radius = 0;
    QColor edge = Qt::transparent;
    double edgeWidth = 0;  // drawn inside the box, in whole device pixels, at least one; 0: none
    QColor shadow = Qt::transparent;
    double shadowRadius = 0;  // the deviation of its blur
    double shadowOffset = 0;  // downwards

    friend bool operator==(const BoxLook&, const BoxLook&) = default;
};

// A painted box that may be stretched: all that bends lies within `padding` device pixels of each
// side of the image, the box itself begins `margin` pixels inside it.
struct BoxPatch {
    QSize image;
    int margin = 0;
    int paddingX = 0;
    int paddingY = 0;

    friend bool operator==(const BoxPatch&, const BoxPatch&) = default;
};

// The smallest image that can stand for a box of `box` device pixels. A box too short to have a
// straight piece in one direction is painted at its own length in that direction.
[[nodiscard]] BoxPatch patchFor(const BoxLook& look, QSize box, double pixelRatio);

// The image of that patch. A shadow is left out beneath a filling that would let it through.
[[nodiscard]] QImage paintBox(const BoxLook& look, const BoxPatch& patch, double pixelRatio);

// Equal for two boxes that `paintBox` paints alike.
[[nodiscard]] QString keyOf(const BoxLook& look, const BoxPatch& patch, double pixelRatio);

}  // namespace morvane
