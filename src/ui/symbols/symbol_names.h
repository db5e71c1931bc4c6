#pragma once

#include <array>
#include <string_view>

namespace morvane {

// Every symbol that is drawn; each has its drawing in drawings/, named like it, on a grid of 24.
inline constexpr std::array<std::string_view, 31> symbolNames{
    "archivebox",
    "arrow.clockwise",
    "arrow.counterclockwise",
    "arrow.down.to.line",
    "chart.pie",
    "checkmark",
    "checkmark.circle.fill",
    "checkmark.shield",
    "chevron.left.forwardslash.chevron.right",
    "chevron.right",
    "cube.transparent",
    "cursorarrow",
    "doc.text",
    "doc.text.magnifyingglass",
    "exclamationmark.triangle.fill",
    "eye",
    "folder",
    "gauge.with.dots.needle.67percent",
    "hammer",
    "hand.raised.fill",
    "iphone",
    "lock",
    "magnifyingglass",
    "minus.square",
    "plus",
    "questionmark.folder",
    "shippingbox",
    "slider.horizontal.3",
    "sparkles",
    "trash",
    "xmark.circle.fill"};

// The one name that stands for the brand's own mark and has no drawing.
inline constexpr std::string_view brandSymbol = "morvane";

}  // namespace morvane
