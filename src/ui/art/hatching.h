#pragma once

#include <QColor>
#include <QtQml/qqmlregistration.h>

#include "ui/art/picture_item.h"

namespace morvane {

// Fills a rectangle of this size with parallel lines of 45 degrees, rising to the right.
void paintHatching(QPainter& painter, QSizeF size, double spacing, double lineWidth,
                   const QColor& color);

class Hatching : public morvane::PictureItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY linesChanged)
    Q_PROPERTY(qreal spacing MEMBER spacing_ NOTIFY linesChanged)
    Q_PROPERTY(qreal lineWidth MEMBER lineWidth_ NOTIFY linesChanged)

public:
    explicit Hatching(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void linesChanged();

protected:
    [[nodiscard]] Picture picture() const override;

private:
    QColor color_ = Qt::black;
    qreal spacing_ = 5;
    qreal lineWidth_ = 2;
};

}  // namespace morvane
