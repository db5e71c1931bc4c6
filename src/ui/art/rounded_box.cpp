#include "ui/art/rounded_box.h"

#include <QQuickWindow>
#include <QSGNinePatchNode>
#include <cmath>

#include "ui/art/pixel_grid_node.h"
#include "ui/art/shared_textures.h"

namespace morvane {
namespace {

class BoxNode final : public PixelGridNode {
public:
    explicit BoxNode(QSGNinePatchNode* patch) : patch_(patch) { appendChildNode(patch_); }

    void setTexture(std::shared_ptr<QSGTexture> texture, const BoxPatch& patch, double ratio) {
        patch_->setTexture(texture.get());
        patch_->setDevicePixelRatio(ratio);
        const double across = patch.paddingX / ratio;
        const double down = patch.paddingY / ratio;
        patch_->setPadding(across, down, across, down);
        texture_ = std::move(texture);
    }

protected:
    void show(const QRectF& place) override {
        patch_->setBounds(place);
        patch_->update();
    }

private:
    std::shared_ptr<QSGTexture> texture_;
    QSGNinePatchNode* patch_;  // a child, freed with this node
};

}  // namespace

RoundedBox::RoundedBox(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

QSGNode* RoundedBox::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<BoxNode*>(old);
    const double ratio = window()->effectiveDevicePixelRatio();
    const QSize box(static_cast<int>(std::lround(width() * ratio)),
                    static_cast<int>(std::lround(height() * ratio)));
    std::shared_ptr<QSGTexture> texture;
    const BoxPatch patch = patchFor(look_, box, ratio);
    if (!box.isEmpty())
        texture = sharedTexture(*window(), keyOf(look_, patch, ratio),
                                [&] { return paintBox(look_, patch, ratio); });
    if (texture == nullptr) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) node = new BoxNode(window()->createNinePatchNode());
    node->setTexture(std::move(texture), patch, ratio);
    const double margin = patch.margin / ratio;
    node->setPlace(
        QRectF(QPointF(), QSizeF(box) / ratio).adjusted(-margin, -margin, margin, margin), ratio);
    return node;
}

void RoundedBox::itemChange(ItemChange change, const ItemChangeData& value) {
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) update();
    QQuickItem::itemChange(change, value);
}

void RoundedBox::geometryChange(const QRectF& now, const QRectF& before) {
    if (now.size() != before.size()) update();
    QQuickItem::geometryChange(now, before);
}

}  // namespace morvane
