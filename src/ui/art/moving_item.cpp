#include "ui/art/moving_item.h"

#include <QMatrix4x4>
#include <QQuickWindow>
#include <QSGImageNode>

#include "ui/art/shared_textures.h"

namespace morvane {
namespace {

class PieceNode final : public QSGOpacityNode {
public:
    explicit PieceNode(QSGImageNode* image) : image_(image) {
        image_->setFiltering(QSGTexture::Linear);
        place_.setFlag(OwnedByParent, false);
        place_.appendChildNode(image_);
        appendChildNode(&place_);
    }

    void setPicture(std::shared_ptr<QSGTexture> texture, const QRectF& rect) {
        image_->setTexture(texture.get());
        image_->setSourceRect(QRectF(QPointF(), texture->textureSize()));
        image_->setRect(rect);
        texture_ = std::move(texture);
    }

    void setPose(const Pose& pose) {
        QMatrix4x4 matrix;
        matrix.translate(static_cast<float>(pose.at.x()), static_cast<float>(pose.at.y()));
        matrix.rotate(static_cast<float>(pose.degrees), 0, 0, 1);
        matrix.scale(static_cast<float>(pose.scale));
        place_.setMatrix(matrix);
        setOpacity(pose.opacity);
    }

private:
    QSGTransformNode place_;
    std::shared_ptr<QSGTexture> texture_;
    QSGImageNode* image_;  // a child of the place, freed with it
};

}  // namespace

MovingItem::MovingItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void MovingItem::setDark(bool dark) {
    if (dark == dark_) return;
    dark_ = dark;
    repaint_ = true;
    update();
    Q_EMIT darkChanged();
}

void MovingItem::setTime(qreal seconds) {
    if (seconds == time_) return;
    time_ = seconds;
    update();
    Q_EMIT timeChanged();
}

QSGNode* MovingItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    QSGNode* root = old;
    if (root == nullptr) {
        root = new QSGNode;
        for (int index = 0; index < pieces(); ++index)
            root->appendChildNode(new PieceNode(window()->createImageNode()));
        repaint_ = true;
    }
    const double ratio = window()->effectiveDevicePixelRatio();
    for (int index = 0; index < pieces(); ++index) {
        auto* node = static_cast<PieceNode*>(root->childAtIndex(index));
        if (repaint_) {
            const Picture shown = piece(index);
            std::shared_ptr<QSGTexture> texture =
                sharedTexture(*window(), shown.key + QStringLiteral(" @%1").arg(ratio),
                              [&] { return imageOf(shown, ratio); });
            if (texture == nullptr) {
                delete root;
                return nullptr;
            }
            node->setPicture(
                std::move(texture),
                QRectF(shown.bounds.topLeft(), QSizeF(pixelsOf(shown.bounds, ratio)) / ratio));
        }
        node->setPose(pose(index));
    }
    repaint_ = false;
    return root;
}

void MovingItem::itemChange(ItemChange change, const ItemChangeData& value) {
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) {
        repaint_ = true;
        update();
    }
    QQuickItem::itemChange(change, value);
}

}  // namespace morvane
