#pragma once

#include <QImage>
#include <QPainter>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

namespace morvane {

// A picture as an item wants it shown now.
struct Picture {
    QString key;                           // equal keys, equal pictures at one pixel ratio
    QRectF bounds;                         // in the item's logical pixels; empty: nothing is shown
    std::function<void(QPainter&)> paint;  // draws within the bounds, in the item's coordinates
};

// The picture at this pixel ratio, its size rounded up to whole device pixels.
[[nodiscard]] QImage imageOf(const Picture& picture, double pixelRatio);

// The device pixels that such a picture takes.
[[nodiscard]] QSize pixelsOf(const QRectF& bounds, double pixelRatio);

// An item that shows one still picture, painted once for every pixel ratio and shared by all the
// items that show the same, on whole device pixels. Items name their base with its namespace: the
// type registration takes it as it is written.
class PictureItem : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit PictureItem(QQuickItem* parent = nullptr);

protected:
    // Asked whenever the item has been told to update, while the main thread waits.
    [[nodiscard]] virtual Picture picture() const = 0;

    [[nodiscard]] double pixelRatio() const;

    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override;
    void itemChange(ItemChange change, const ItemChangeData& value) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
};

}  // namespace morvane
