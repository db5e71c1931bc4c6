#pragma once

#include <QRectF>
#include <QSGNode>
#include <QSGTexture>

namespace morvane {

// A node that keeps what it shows on the screen's pixel grid: its origin is taken to the nearest
// whole device pixel, wherever its ancestors have been moved since, before each frame. Below a
// rotation or a scaling it stays where it is put.
class PixelGridNode : public QSGNode {
public:
    PixelGridNode();

    // Where the picture goes, in the item's logical pixels; its size is a whole number of device
    // pixels.
    void setPlace(const QRectF& place, double pixelRatio);

    void preprocess() override;

protected:
    // Shows the picture in `place`. On the grid its pixels are the screen's and are copied; where
    // the scene turns or scales it they are mixed.
    virtual void show(const QRectF& place, QSGTexture::Filtering filtering) = 0;

private:
    QRectF place_;
    QPointF shown_;
    double pixelRatio_ = 1;
    bool onGrid_ = true;
    bool stale_ = true;
};

// How far `origin` is from the pixel grid, to be added to it.
[[nodiscard]] QPointF toPixelGrid(QPointF origin, double pixelRatio);

}  // namespace morvane
