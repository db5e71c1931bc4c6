#include "ui/art/pixel_grid_node.h"

#include <QMatrix4x4>
#include <cmath>
#include <optional>

namespace morvane {
namespace {

// Where the scene puts this node's origin; nothing when it is turned or scaled.
std::optional<QPointF> originOf(const QSGNode& node) {
    QPointF origin;
    for (const QSGNode* above = node.parent(); above != nullptr; above = above->parent()) {
        if (above->type() != QSGNode::TransformNodeType) continue;
        const QMatrix4x4& matrix = static_cast<const QSGTransformNode*>(above)->matrix();
        const QMatrix4x4 rest = matrix * QMatrix4x4(1, 0, 0, -matrix(0, 3), 0, 1, 0, -matrix(1, 3),
                                                    0, 0, 1, 0, 0, 0, 0, 1);
        if (!rest.isIdentity()) return std::nullopt;
        origin += QPointF(static_cast<double>(matrix(0, 3)), static_cast<double>(matrix(1, 3)));
    }
    return origin;
}

}  // namespace

QPointF toPixelGrid(QPointF origin, double pixelRatio) {
    const auto off = [pixelRatio](double at) {
        return std::floor(at * pixelRatio + 0.5) / pixelRatio - at;
    };
    return {off(origin.x()), off(origin.y())};
}

PixelGridNode::PixelGridNode() {
    setFlag(UsePreprocess);
}

void PixelGridNode::setPlace(const QRectF& place, double pixelRatio) {
    place_ = place;
    pixelRatio_ = pixelRatio;
    stale_ = true;
}

void PixelGridNode::preprocess() {
    QPointF corner = place_.topLeft();
    const std::optional<QPointF> origin = originOf(*this);
    const bool onGrid = origin.has_value();
    if (onGrid) corner += toPixelGrid(*origin + corner, pixelRatio_);
    if (!stale_ && corner == shown_ && onGrid == onGrid_) return;
    stale_ = false;
    shown_ = corner;
    onGrid_ = onGrid;
    show(QRectF(corner, place_.size()), onGrid ? QSGTexture::Nearest : QSGTexture::Linear);
}

}  // namespace morvane
