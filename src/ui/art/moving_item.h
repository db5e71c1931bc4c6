#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include "ui/art/picture_item.h"

namespace morvane {

// How a piece of art stands at one instant: its picture's origin is put at `at`, then it is turned
// and scaled about that point.
struct Pose {
    QPointF at;
    double scale = 1;
    double opacity = 1;
    double degrees = 0;
};

// Still pictures that the clock moves. The pictures are painted when the look changes; a new `time`
// only moves them.
class MovingItem : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(bool dark READ dark WRITE setDark NOTIFY darkChanged)
    Q_PROPERTY(qreal time READ time WRITE setTime NOTIFY timeChanged)

public:
    explicit MovingItem(QQuickItem* parent);

    [[nodiscard]] bool dark() const { return dark_; }
    void setDark(bool dark);
    [[nodiscard]] qreal time() const { return time_; }
    void setTime(qreal seconds);

Q_SIGNALS:
    void darkChanged();
    void timeChanged();

protected:
    [[nodiscard]] virtual int pieces() const = 0;
    // The picture of one piece, around the origin that its pose moves.
    [[nodiscard]] virtual Picture piece(int index) const = 0;
    [[nodiscard]] virtual Pose pose(int index) const = 0;

    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override;
    void itemChange(ItemChange change, const ItemChangeData& value) override;

private:
    bool dark_ = false;
    qreal time_ = 0;
    bool repaint_ = true;
};

}  // namespace morvane
