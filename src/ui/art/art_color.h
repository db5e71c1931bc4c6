#pragma once

#include <QColor>
#include <string_view>

#include "ui/theme/palette.h"

namespace morvane {

[[nodiscard]] inline QColor toColor(const PaletteValue& value, double opacity = 1) {
    QColor color = QColor::fromRgb(value.rgb);
    color.setAlphaF(static_cast<float>(value.alpha * opacity));
    return color;
}

// The palette's colour of this name, thinned by `opacity`; an unknown name gives an invalid colour,
// which paints black and is seen at once.
[[nodiscard]] inline QColor artColor(std::string_view name, bool dark, double opacity = 1) {
    for (const PaletteColor& color : palette)
        if (color.name == name) return toColor(dark ? color.dark : color.light, opacity);
    return {};
}

}  // namespace morvane
