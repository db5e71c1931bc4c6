#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>
#include <QVariant>
#include <functional>
#include <unordered_map>
#include <vector>

#include "ui/review/review_screen.h"
#include "ui/window/review_layout.h"

namespace morvane {

// The rows of the review that are on view, or nearly: three screens of them in all, each with the
// place where it stands. However many a scan found, no more than these exist for QML.
class ReviewList final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")

    // All of it, on view or not, in logical pixels.
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY placed)
    // The ground of each group: a list of maps `y`, `height`.
    Q_PROPERTY(QVariantList cards READ cards NOTIFY placed)

public:
    enum Role {
        keyRole = Qt::UserRole,
        isHeaderRole,
        isFirstRole,
        isLastRole,
        topRole,
        heightRole,
        entryRole
    };

    explicit ReviewList(QObject* parent);

    void setGroups(std::vector<screens::ReviewGroup> groups);

    [[nodiscard]] double contentHeight() const { return layout_.height(); }
    [[nodiscard]] QVariantList cards() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // What part of the list the window shows.
    Q_INVOKABLE void setViewport(double top, double height);
    // An open panel has found out how high it is.
    Q_INVOKABLE void setPanelHeight(const QString& key, double height);

    // The key of the entry `step` places further, kept within the list; empty for an empty list.
    Q_INVOKABLE [[nodiscard]] QString neighbour(const QString& key, int step) const;
    Q_INVOKABLE [[nodiscard]] QString first() const { return neighbour({}, 0); }
    Q_INVOKABLE [[nodiscard]] double topOf(const QString& key) const;
    Q_INVOKABLE [[nodiscard]] double heightOf(const QString& key) const;

signals:
    void placed();
    // What stood in the viewport stands `distance` further down now: scrolling by as much leaves it
    // in place.
    void shifted(double distance);

private:
    struct Shown {
        std::string key;
        int place = 0;  // in the layout
    };

    // Of places in a layout; `end` is not one of them.
    struct Range {
        int begin = 0;
        int end = 0;
    };

    [[nodiscard]] ReviewLayout layoutOf(const std::vector<screens::ReviewGroup>& groups) const;
    [[nodiscard]] double distanceIn(const ReviewLayout& next) const;
    [[nodiscard]] Range rangeOf(const ReviewLayout& layout) const;
    // Goes over to `next`, which `replaceGroups` makes the groups fit.
    void keepInPlace(ReviewLayout& next, const std::function<void()>& replaceGroups);
    void takeOut(const ReviewLayout& next, Range range);
    void putIn(Range range);
    [[nodiscard]] QVariantMap entryAt(int place) const;

    std::vector<screens::ReviewGroup> groups_;
    std::unordered_map<std::string, double> panelHeights_;
    ReviewLayout layout_;
    std::vector<Shown> shown_;
    double top_ = 0;
    double viewHeight_ = 0;
};

}  // namespace morvane
