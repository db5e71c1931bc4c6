#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include "ui/art/box_painting.h"

namespace morvane {

// A rectangle with continuous corners, an outline of whole device pixels inside its edge, and a
// soft shadow outside it. All boxes of one look share a texture, whatever their sizes.
class RoundedBox : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY lookChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY lookChanged)
    Q_PROPERTY(QColor edgeColor READ edgeColor WRITE setEdgeColor NOTIFY lookChanged)
    Q_PROPERTY(qreal edgeWidth READ edgeWidth WRITE setEdgeWidth NOTIFY lookChanged)
    Q_PROPERTY(QColor shadowColor READ shadowColor WRITE setShadowColor NOTIFY lookChanged)
    Q_PROPERTY(qreal shadowRadius READ shadowRadius WRITE setShadowRadius NOTIFY lookChanged)
    Q_PROPERTY(qreal shadowOffset READ shadowOffset WRITE setShadowOffset NOTIFY lookChanged)

public:
    explicit RoundedBox(QQuickItem* parent = nullptr);

    [[nodiscard]] qreal radius() const { return look_.radius; }
    [[nodiscard]] QColor color() const { return look_.fill; }
    [[nodiscard]] QColor edgeColor() const { return look_.edge; }
    [[nodiscard]] qreal edgeWidth() const { return look_.edgeWidth; }
    [[nodiscard]] QColor shadowColor() const { return look_.shadow; }
    [[nodiscard]] qreal shadowRadius() const { return look_.shadowRadius; }
    [[nodiscard]] qreal shadowOffset() const { return look_.shadowOffset; }

    void setRadius(qreal radius) { change(&BoxLook::radius, radius); }
    void setColor(const QColor& color) { change(&BoxLook::fill, color); }
    void setEdgeColor(const QColor& color) { change(&BoxLook::edge, color); }
    void setEdgeWidth(qreal width) { change(&BoxLook::edgeWidth, width); }
    void setShadowColor(const QColor& color) { change(&BoxLook::shadow, color); }
    void setShadowRadius(qreal radius) { change(&BoxLook::shadowRadius, radius); }
    void setShadowOffset(qreal offset) { change(&BoxLook::shadowOffset, offset); }

Q_SIGNALS:
    void lookChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override;
    void itemChange(ItemChange change, const ItemChangeData& value) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    template <typename Value>
    void change(Value BoxLook::* field, const Value& value) {
        if (look_.*field == value) return;
        look_.*field = value;
        update();
        Q_EMIT lookChanged();
    }

    BoxLook look_;
};

}  // namespace morvane
