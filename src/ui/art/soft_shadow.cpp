#include "ui/art/soft_shadow.h"

#include <QColor>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace morvane {
namespace {

// A moving average over 2 `reach` + 1 values and, counted by `rim`, one more at either end. The rim
// gives it any width between two whole ones, so that three in a row have the wanted deviation
// exactly and are, to the eye, a Gaussian, at a cost that does not grow with it.
struct Average {
    int reach = 0;
    float rim = 0;
};

Average averageOf(double deviation) {
    constexpr double rounds = 3;
    const double variance = deviation * deviation / rounds;
    int reach = 0;
    while ((reach + 1) * (reach + 2) / 3.0 <= variance) ++reach;
    const double whole = 2.0 * reach + 1;
    const double squares = reach * (reach + 1) * whole / 3;
    const double next = (reach + 1.0) * (reach + 1.0);
    return {reach, static_cast<float>((variance * whole - squares) / (2 * (next - variance)))};
}

// Averages every row of `from` and writes it as a column, so that two calls go both ways.
void averageRowsIntoColumns(const float* from, float* into, int width, int height,
                            const Average& average) {
    const int reach = average.reach;
    const float weight = 1 / (2 * (static_cast<float>(reach) + average.rim) + 1);
    for (int y = 0; y < height; ++y) {
        const float* row = from + std::ptrdiff_t{y} * width;
        float sum = 0;  // of the whole values around the next one
        for (int at = 0; at < std::min(reach, width); ++at) sum += row[at];
        for (int x = 0; x < width; ++x) {
            const int first = x - reach;
            const int last = x + reach;
            if (last < width) sum += row[last];
            float rims = 0;
            if (first > 0) rims += row[first - 1];
            if (last + 1 < width) rims += row[last + 1];
            into[std::ptrdiff_t{x} * height + y] = (sum + average.rim * rims) * weight;
            if (first >= 0) sum -= row[first];
        }
    }
}

}  // namespace

int shadowReach(double deviation) {
    return deviation > 0 ? static_cast<int>(std::ceil(3 * deviation)) : 0;
}

QImage blurred(const QImage& alpha, double deviation) {
    if (deviation <= 0 || alpha.isNull()) return alpha;
    const int width = alpha.width();
    const int height = alpha.height();
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::vector<float> values(count);
    std::vector<float> turned(count);
    for (int y = 0; y < height; ++y)
        std::copy_n(alpha.constScanLine(y), width, values.data() + std::ptrdiff_t{y} * width);
    const Average average = averageOf(deviation);
    for (int round = 0; round < 3; ++round) {
        averageRowsIntoColumns(values.data(), turned.data(), width, height, average);
        averageRowsIntoColumns(turned.data(), values.data(), height, width, average);
    }
    QImage result(alpha.size(), QImage::Format_Alpha8);
    for (int y = 0; y < height; ++y) {
        const float* from = values.data() + std::ptrdiff_t{y} * width;
        std::transform(from, from + width, result.scanLine(y), [](float value) {
            return static_cast<uchar>(std::lround(std::clamp(value, 0.0F, 255.0F)));
        });
    }
    return result;
}

QImage tinted(const QImage& mask, const QColor& color) {
    QImage result(mask.size(), QImage::Format_ARGB32_Premultiplied);
    const float opacity = color.alphaF();
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* from = mask.constScanLine(y);
        auto* into = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < mask.width(); ++x) {
            const auto alpha = static_cast<int>(std::lround(static_cast<float>(from[x]) * opacity));
            into[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha));
        }
    }
    return result;
}

}  // namespace morvane
