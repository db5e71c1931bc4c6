#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace morvane::sample {

/// Rows of red, green, blue, alpha, one byte each.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

/// An application's icon: a rounded square in a colour of its own with a lighter mark on it.
/// `variety` chooses colour and mark.
[[nodiscard]] Picture drawIcon(int side, std::uint64_t variety);

/// A picture such as a screenshot or a photo: bands of colour from sky to ground.
[[nodiscard]] Picture drawScene(int width, int height, std::uint64_t variety);

/// Portable Network Graphics, the pixels stored without compression.
[[nodiscard]] std::string encodePng(const Picture& picture);

/// An icon container with a picture of 128 pixels, and one of 256 when `withLarge` is set.
[[nodiscard]] std::string iconFile(std::uint64_t variety, bool withLarge);

}  // namespace morvane::sample
