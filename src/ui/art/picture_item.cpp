#include "ui/art/picture_item.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <cmath>

#include "ui/art/pixel_grid_node.h"
#include "ui/art/shared_textures.h"

namespace morvane {
namespace {

class PictureNode final : public PixelGridNode {
public:
    explicit PictureNode(QSGImageNode* image) : image_(image) { appendChildNode(image_); }

    void setTexture(std::shared_ptr<QSGTexture> texture) {
        image_->setTexture(texture.get());
        image_->setSourceRect(QRectF(QPointF(), texture->textureSize()));
        texture_ = std::move(texture);
    }

protected:
    void show(const QRectF& place, QSGTexture::Filtering filtering) override {
        image_->setRect(place);
        image_->setFiltering(filtering);
    }

private:
    std::shared_ptr<QSGTexture> texture_;
    QSGImageNode* image_;  // a child, freed with this node
};

}  // namespace

QSize pixelsOf(const QRectF& bounds, double pixelRatio) {
    // A length that is whole but for rounding takes no further pixel.
    const auto whole = [pixelRatio](double length) {
        return static_cast<int>(std::ceil(length * pixelRatio - 1e-6));
    };
    return {whole(bounds.width()), whole(bounds.height())};
}

QImage imageOf(const Picture& picture, double pixelRatio) {
    QImage image(pixelsOf(picture.bounds, pixelRatio), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(pixelRatio, pixelRatio);
    painter.translate(-picture.bounds.topLeft());
    picture.paint(painter);
    return image;
}

PictureItem::PictureItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

double PictureItem::pixelRatio() const {
    return window() != nullptr ? window()->effectiveDevicePixelRatio() : 1;
}

QSGNode* PictureItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<PictureNode*>(old);
    const Picture shown = picture();
    const double ratio = pixelRatio();
    const QSize pixels = pixelsOf(shown.bounds, ratio);
    std::shared_ptr<QSGTexture> texture;
    if (!pixels.isEmpty())
        texture = sharedTexture(*window(), shown.key + QStringLiteral(" @%1").arg(ratio),
                                [&] { return imageOf(shown, ratio); });
    if (texture == nullptr) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) node = new PictureNode(window()->createImageNode());
    node->setTexture(std::move(texture));
    node->setPlace(QRectF(shown.bounds.topLeft(), QSizeF(pixels) / ratio), ratio);
    return node;
}

void PictureItem::itemChange(ItemChange change, const ItemChangeData& value) {
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) update();
    QQuickItem::itemChange(change, value);
}

void PictureItem::geometryChange(const QRectF& now, const QRectF& before) {
    if (now.size() != before.size()) update();
    QQuickItem::geometryChange(now, before);
}

}  // namespace morvane
