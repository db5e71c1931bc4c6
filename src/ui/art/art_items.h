#pragma once

#include <QColor>
#include <QtQml/qqmlregistration.h>

#include "ui/art/picture_item.h"

namespace morvane {

// A square item of art; `size` is its side in logical pixels and its implicit width and height.
class ArtItem : public morvane::PictureItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(qreal size READ side WRITE setSide NOTIFY sideChanged)

public:
    explicit ArtItem(double side, QQuickItem* parent);

    [[nodiscard]] qreal side() const { return side_; }
    void setSide(qreal side);

Q_SIGNALS:
    void sideChanged();

protected:
    // The picture `name` whose painting fills the square of 100.
    [[nodiscard]] Picture square(const QString& name, std::function<void(QPainter&)> paint) const;

private:
    qreal side_;
};

class AppLogo : public morvane::ArtItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool detailed MEMBER detailed_ NOTIFY detailedChanged)

public:
    explicit AppLogo(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void detailedChanged();

protected:
    [[nodiscard]] Picture picture() const override;

private:
    bool detailed_ = false;
};

class SweepGlyph : public morvane::ArtItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal lineWidth MEMBER lineWidth_ NOTIFY lineChanged)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY lineChanged)

public:
    explicit SweepGlyph(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void lineChanged();

protected:
    [[nodiscard]] Picture picture() const override;

private:
    qreal lineWidth_ = 1.8;
    QColor color_ = Qt::black;
};

// One of the two large illustrations, in either appearance.
class Illustration : public morvane::ArtItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(bool dark MEMBER dark_ NOTIFY darkChanged)

public:
    using Painting = void (*)(QPainter&, bool dark);
    Illustration(const QString& name, Painting painting, double side, QQuickItem* parent);

Q_SIGNALS:
    void darkChanged();

protected:
    [[nodiscard]] Picture picture() const override;

private:
    QString name_;
    Painting painting_;
    bool dark_ = false;
};

class IdleIllustration : public morvane::Illustration {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit IdleIllustration(QQuickItem* parent = nullptr);
};

class SpotlessIllustration : public morvane::Illustration {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit SpotlessIllustration(QQuickItem* parent = nullptr);
};

}  // namespace morvane
