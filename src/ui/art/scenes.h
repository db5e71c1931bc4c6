#pragma once

#include "ui/art/moving_item.h"

namespace morvane {

// The pan at work: a disc, the rocking pan, eight crumbs. 280 by 220.
class SweepingScene : public morvane::MovingItem {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit SweepingScene(QQuickItem* parent = nullptr);

protected:
    [[nodiscard]] int pieces() const override;
    [[nodiscard]] Picture piece(int index) const override;
    [[nodiscard]] Pose pose(int index) const override;
};

// Eighteen pieces that burst from the middle of whatever space the item has.
class ConfettiScene : public morvane::MovingItem {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit ConfettiScene(QQuickItem* parent = nullptr);

protected:
    [[nodiscard]] int pieces() const override;
    [[nodiscard]] Picture piece(int index) const override;
    [[nodiscard]] Pose pose(int index) const override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
};

}  // namespace morvane
