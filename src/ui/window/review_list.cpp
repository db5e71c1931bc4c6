#include "ui/window/review_list.h"

#include <algorithm>
#include <cmath>

#include "ui/window/variant_writer.h"

namespace morvane {

namespace {

// Until an open panel has been laid out: a title, two lines, a place.
constexpr double usualPanelHeight = 112;

}  // namespace

ReviewList::ReviewList(QObject* parent) : QAbstractListModel(parent) {}

void ReviewList::setGroups(std::vector<screens::ReviewGroup> groups) {
    if (groups == groups_) return;
    ReviewLayout layout = layoutOf(groups);
    keepInPlace(layout, [&] { groups_ = std::move(groups); });
}

void ReviewList::setPanelHeight(const QString& key, double height) {
    double& known = panelHeights_[key.toStdString()];
    if (std::abs(known - height) < 0.01) return;
    known = height;
    ReviewLayout layout = layoutOf(groups_);
    keepInPlace(layout, [] {});
}

ReviewLayout ReviewList::layoutOf(const std::vector<screens::ReviewGroup>& groups) const {
    ReviewLayout layout;
    layout.build(groups, [this](const std::string& key) {
        const auto known = panelHeights_.find(key);
        return known == panelHeights_.end() ? usualPanelHeight : known->second;
    });
    return layout;
}

// How much further down in `next` that stands which the user looks at first; if it has gone, what
// came after it.
double ReviewList::distanceIn(const ReviewLayout& next) const {
    if (top_ <= 0) return 0;
    const std::vector<ReviewLayout::Entry>& entries = layout_.entries();
    for (auto each = static_cast<std::size_t>(layout_.firstBelow(top_)); each < entries.size();
         ++each) {
        const int now = next.placeOf(entries[each].key);
        if (now >= 0) return next.entries()[static_cast<std::size_t>(now)].top - entries[each].top;
    }
    return 0;
}

void ReviewList::keepInPlace(ReviewLayout& next, const std::function<void()>& replaceGroups) {
    const double distance = distanceIn(next);
    top_ += distance;
    // What goes is told while the list still is what it was, so that whoever listens may read it.
    const Range range = rangeOf(next);
    takeOut(next, range);
    replaceGroups();
    layout_ = std::move(next);
    for (Shown& shown : shown_) shown.place = layout_.placeOf(shown.key);
    putIn(range);
    if (!shown_.empty()) emit dataChanged(index(0), index(static_cast<int>(shown_.size()) - 1));
    emit placed();
    if (distance != 0) emit shifted(distance);
}

void ReviewList::setViewport(double top, double height) {
    if (top == top_ && height == viewHeight_) return;
    top_ = top;
    viewHeight_ = height;
    const Range range = rangeOf(layout_);
    takeOut(layout_, range);
    putIn(range);
}

ReviewList::Range ReviewList::rangeOf(const ReviewLayout& layout) const {
    const std::vector<ReviewLayout::Entry>& entries = layout.entries();
    // At either end of the list the screens that would lie beyond it lie on its other side.
    const double last = std::max(0.0, layout.height() - 3 * viewHeight_);
    const double from = std::clamp(top_ - viewHeight_, 0.0, last);
    Range range{.begin = layout.firstBelow(from), .end = 0};
    range.end = range.begin;
    while (range.end < std::ssize(entries) &&
           entries[static_cast<std::size_t>(range.end)].top < from + 3 * viewHeight_) {
        ++range.end;
    }
    return range;
}

// Takes out the rows that lie outside of `range` of `next`, or stand in another order there.
void ReviewList::takeOut(const ReviewLayout& next, Range range) {
    int last = -1;
    for (int row = 0; row < std::ssize(shown_);) {
        const int place = next.placeOf(shown_[static_cast<std::size_t>(row)].key);
        if (place >= range.begin && place < range.end && place > last) {
            last = place;
            ++row;
            continue;
        }
        beginRemoveRows({}, row, row);
        shown_.erase(shown_.begin() + row);
        endRemoveRows();
    }
}

void ReviewList::putIn(Range range) {
    for (int place = range.begin; place < range.end; ++place) {
        const int row = place - range.begin;
        if (row < std::ssize(shown_) && shown_[static_cast<std::size_t>(row)].place == place) {
            continue;
        }
        beginInsertRows({}, row, row);
        shown_.insert(shown_.begin() + row,
                      Shown{layout_.entries()[static_cast<std::size_t>(place)].key, place});
        endInsertRows();
    }
}

QVariantList ReviewList::cards() const {
    QVariantList cards;
    for (const ReviewLayout::Card& card : layout_.cards()) {
        cards.append(
            QVariantMap{{QStringLiteral("y"), card.top}, {QStringLiteral("height"), card.height}});
    }
    return cards;
}

int ReviewList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariantMap ReviewList::entryAt(int place) const {
    const ReviewLayout::Entry& entry = layout_.entries()[static_cast<std::size_t>(place)];
    const screens::ReviewGroup& group = groups_[static_cast<std::size_t>(entry.group)];
    if (!entry.isHeader()) {
        return toVariant(group.rows[static_cast<std::size_t>(entry.row)]).toMap();
    }
    return {{QStringLiteral("id"), QString::fromStdString(group.id)},
            {QStringLiteral("label"), QString::fromStdString(group.label)},
            {QStringLiteral("symbol"), QString::fromStdString(group.symbol)},
            {QStringLiteral("state"), toVariant(group.state)},
            {QStringLiteral("count"), QString::fromStdString(group.count)},
            {QStringLiteral("size"), QString::fromStdString(group.size)}};
}

QVariant ReviewList::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= std::ssize(shown_)) return {};
    const Shown& shown = shown_[static_cast<std::size_t>(index.row())];
    const ReviewLayout::Entry& entry = layout_.entries()[static_cast<std::size_t>(shown.place)];
    const auto& rows = groups_[static_cast<std::size_t>(entry.group)].rows;
    switch (role) {
        case keyRole:
            return QString::fromStdString(entry.key);
        case isHeaderRole:
            return entry.isHeader();
        case isFirstRole:
            return entry.row == 0;
        case isLastRole:
            return entry.row == static_cast<int>(rows.size()) - 1;
        case topRole:
            return entry.top;
        case heightRole:
            return entry.height;
        case entryRole:
            return entryAt(shown.place);
        default:
            return {};
    }
}

QHash<int, QByteArray> ReviewList::roleNames() const {
    return {{keyRole, "key"},       {isHeaderRole, "isHeader"}, {isFirstRole, "isFirst"},
            {isLastRole, "isLast"}, {topRole, "rowTop"},        {heightRole, "rowHeight"},
            {entryRole, "entry"}};
}

QString ReviewList::neighbour(const QString& key, int step) const {
    const int count = static_cast<int>(layout_.entries().size());
    if (count == 0) return {};
    const int place = std::max(0, layout_.placeOf(key.toStdString()));
    const int there = std::clamp(place + step, 0, count - 1);
    return QString::fromStdString(layout_.entries()[static_cast<std::size_t>(there)].key);
}

double ReviewList::topOf(const QString& key) const {
    const int place = layout_.placeOf(key.toStdString());
    return place < 0 ? 0 : layout_.entries()[static_cast<std::size_t>(place)].top;
}

double ReviewList::heightOf(const QString& key) const {
    const int place = layout_.placeOf(key.toStdString());
    return place < 0 ? 0 : layout_.entries()[static_cast<std::size_t>(place)].height;
}

}  // namespace morvane
