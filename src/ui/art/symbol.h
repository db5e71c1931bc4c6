#pragma once

#include <QColor>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "ui/art/picture_item.h"

namespace morvane {

// A named symbol in one colour. `size` is a size of type: the grid on which symbols are drawn is
// larger by what type keeps free around its letters, so that a symbol of 14 suits words of 14. The
// brand's own name draws the brand's mark. A name that is not drawn leaves the item empty.
class Symbol : public morvane::PictureItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY symbolChanged)
    Q_PROPERTY(qreal size READ pointSize WRITE setPointSize NOTIFY symbolChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY symbolChanged)
    Q_PROPERTY(QString weight READ weight WRITE setWeight NOTIFY symbolChanged)

public:
    explicit Symbol(QQuickItem* parent = nullptr);

    [[nodiscard]] QString name() const { return name_; }
    [[nodiscard]] qreal pointSize() const { return size_; }
    [[nodiscard]] QColor color() const { return color_; }
    [[nodiscard]] QString weight() const { return weight_; }

    void setName(const QString& name);
    void setPointSize(qreal size);
    void setColor(const QColor& color);
    // "regular", "semibold", "bold" or "black"; anything else is drawn as regular.
    void setWeight(const QString& weight);

Q_SIGNALS:
    void symbolChanged();

protected:
    [[nodiscard]] Picture picture() const override;

private:
    void changed();

    QString name_;
    qreal size_ = 13;
    QColor color_ = Qt::black;
    QString weight_ = QStringLiteral("regular");
};

}  // namespace morvane
