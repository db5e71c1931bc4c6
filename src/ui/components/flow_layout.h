#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <vector>

namespace morvane {

// Places its visible children one after the other, in rows that wrap at its width. Its implicit
// width is that of one row with all of them; its implicit height follows from its width.
class FlowLayout : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    // Between the items of a row.
    Q_PROPERTY(double spacing READ spacing WRITE setSpacing NOTIFY spacingChanged FINAL)
    // Between the rows.
    Q_PROPERTY(
        double lineSpacing READ lineSpacing WRITE setLineSpacing NOTIFY lineSpacingChanged FINAL)

public:
    using QQuickItem::QQuickItem;

    [[nodiscard]] double spacing() const { return spacing_; }
    void setSpacing(double spacing);
    [[nodiscard]] double lineSpacing() const { return lineSpacing_; }
    void setLineSpacing(double spacing);

signals:
    void spacingChanged();
    void lineSpacingChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void componentComplete() override;
    void updatePolish() override;

private:
    [[nodiscard]] std::vector<QQuickItem*> items() const;
    void layOut();

    double spacing_ = 0;
    double lineSpacing_ = 0;
};

}  // namespace morvane
