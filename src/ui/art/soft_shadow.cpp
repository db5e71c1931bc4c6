#include "ui/art/soft_shadow.h"

#include <QColor>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

namespace morvane {
namespace {

std::vector<float> kernelOf(double deviation) {
    const int reach = shadowReach(deviation);
    std::vector<float> kernel(static_cast<std::size_t>(2 * reach + 1));
    float sum = 0;
    for (int at = -reach; at <= reach; ++at) {
        const auto weight = static_cast<float>(std::exp(-at * at / (2 * deviation * deviation)));
        kernel[static_cast<std::size_t>(at + reach)] = weight;
        sum += weight;
    }
    for (float& weight : kernel) weight /= sum;
    return kernel;
}

// Blurs every row of `from` and writes it as a column, so that two calls blur both ways.
void blurRowsIntoColumns(std::span<const float> from, std::span<float> into, int width, int height,
                         std::span<const float> kernel) {
    const int reach = static_cast<int>(kernel.size() / 2);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            float sum = 0;
            const int first = std::max(x - reach, 0);
            const int last = std::min(x + reach, width - 1);
            for (int at = first; at <= last; ++at)
                sum += from[static_cast<std::size_t>(y * width + at)] *
                       kernel[static_cast<std::size_t>(at - x + reach)];
            into[static_cast<std::size_t>(x * height + y)] = sum;
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
        std::copy_n(alpha.constScanLine(y), width, values.data() + y * width);
    const std::vector<float> kernel = kernelOf(deviation);
    blurRowsIntoColumns(values, turned, width, height, kernel);
    blurRowsIntoColumns(turned, values, height, width, kernel);
    QImage result(alpha.size(), QImage::Format_Alpha8);
    for (int y = 0; y < height; ++y) {
        const float* from = values.data() + y * width;
        std::transform(from, from + width, result.scanLine(y),
                       [](float value) { return static_cast<uchar>(std::lround(value)); });
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
