#include "ui/art/rounded_box.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "ui/art/pixel_grid_node.h"
#include "ui/art/shared_textures.h"

namespace morvane {
namespace {

// A piece of one side: where it lies in the image, in its pixels, and where it is shown.
struct Span {
    double from, fromLength;
    double to, toLength;
};

// One side cut into what is shown as it is and, between, what is stretched; a side that is not
// stretched stays whole.
std::vector<Span> spansOf(int image, int fixed, double start, int shown, double ratio) {
    const double length = shown / ratio;
    if (shown == image) return {{0.0, static_cast<double>(image), start, length}};
    const double end = fixed / ratio;
    const double rest = image - 2.0 * fixed;
    return {{0.0, static_cast<double>(fixed), start, end},
            {static_cast<double>(fixed), rest, start + end, length - 2 * end},
            {fixed + rest, static_cast<double>(fixed), start + length - end, end}};
}

// The toolkit's own nine-patch node takes its texture for itself; this one is made of images that
// share theirs with all the boxes of the same look, so that they are drawn in one go.
class BoxNode final : public PixelGridNode {
public:
    explicit BoxNode(QQuickWindow& window) : window_(window) {}

    // The box as it is shown from now on: `shown` device pixels of this patch.
    void setPatch(std::shared_ptr<QSGTexture> texture, const BoxPatch& patch, QSize shown,
                  double ratio) {
        for (QSGImageNode* piece : pieces_) piece->setTexture(texture.get());
        texture_ = std::move(texture);
        patch_ = patch;
        shown_ = shown;
        ratio_ = ratio;
        resize(columns(0).size() * rows(0).size());
    }

protected:
    void show(const QRectF& place, QSGTexture::Filtering filtering) override {
        auto piece = pieces_.begin();
        for (const Span& row : rows(place.top())) {
            for (const Span& column : columns(place.left())) {
                (*piece)->setSourceRect(
                    QRectF(column.from, row.from, column.fromLength, row.fromLength));
                (*piece)->setRect(QRectF(column.to, row.to, column.toLength, row.toLength));
                (*piece)->setFiltering(filtering);
                ++piece;
            }
        }
    }

private:
    [[nodiscard]] std::vector<Span> columns(double left) const {
        return spansOf(patch_.image.width(), patch_.paddingX, left, shown_.width(), ratio_);
    }
    [[nodiscard]] std::vector<Span> rows(double top) const {
        return spansOf(patch_.image.height(), patch_.paddingY, top, shown_.height(), ratio_);
    }

    // Before the frame is prepared: a renderer overlooks what is added to the scene later.
    void resize(std::size_t count) {
        while (pieces_.size() > count) {
            delete pieces_.back();
            pieces_.pop_back();
        }
        while (pieces_.size() < count) {
            QSGImageNode* piece = window_.createImageNode();
            piece->setTexture(texture_.get());
            appendChildNode(piece);
            pieces_.push_back(piece);
        }
    }

    QQuickWindow& window_;
    std::shared_ptr<QSGTexture> texture_;
    std::vector<QSGImageNode*> pieces_;  // children, freed with this node
    BoxPatch patch_;
    QSize shown_;
    double ratio_ = 1;
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
    if (node == nullptr) node = new BoxNode(*window());
    const QSize shown = box + QSize(2 * patch.margin, 2 * patch.margin);
    node->setPatch(std::move(texture), patch, shown, ratio);
    const double margin = patch.margin / ratio;
    node->setPlace(QRectF(QPointF(-margin, -margin), QSizeF(shown) / ratio), ratio);
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
