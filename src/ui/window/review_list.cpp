#include "ui/window/review_list.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "ui/window/variant_writer.h"

namespace morvane {

namespace {

// Until an open panel has been laid out: a title, two lines, a place.
constexpr double usualPanelHeight = 112;

}  // namespace

ReviewList::ReviewList(QObject* parent) : QAbstractListModel(parent) {}

void ReviewList::setGroups(std::vector<screens::ReviewGroup> groups) {
    if (groups == groups_) return;
    groups_ = std::move(groups);
    place();
}

void ReviewList::setPanelHeight(const QString& key, double height) {
    double& known = panelHeights_[key.toStdString()];
    if (std::abs(known - height) < 0.01) return;
    known = height;
    place();
}

void ReviewList::place() {
    // What the user looks at first stays where it is; if it has gone, what came after it.
    const std::vector<ReviewLayout::Entry> former = layout_.entries();
    const int firstOnView = top_ > 0 ? layout_.firstBelow(top_) : static_cast<int>(former.size());
    layout_.build(groups_, [this](const std::string& key) {
        const auto known = panelHeights_.find(key);
        return known == panelHeights_.end() ? usualPanelHeight : known->second;
    });
    double distance = 0;
    for (std::size_t each = static_cast<std::size_t>(firstOnView); each < former.size(); ++each) {
        const int now = layout_.placeOf(former[each].key);
        if (now < 0) continue;
        distance = layout_.entries()[static_cast<std::size_t>(now)].top - former[each].top;
        break;
    }
    top_ += distance;
    showRange();
    if (!shown_.empty()) emit dataChanged(index(0), index(static_cast<int>(shown_.size()) - 1));
    emit placed();
    if (distance != 0) emit shifted(distance);
}

void ReviewList::setViewport(double top, double height) {
    if (top == top_ && height == viewHeight_) return;
    top_ = top;
    viewHeight_ = height;
    showRange();
}

void ReviewList::showRange() {
    const std::vector<ReviewLayout::Entry>& entries = layout_.entries();
    const int begin = layout_.firstBelow(top_ - viewHeight_);
    int end = begin;
    while (end < std::ssize(entries) &&
           entries[static_cast<std::size_t>(end)].top < top_ + 2 * viewHeight_) {
        ++end;
    }
    std::unordered_set<std::string> wanted;
    for (int place = begin; place < end; ++place) {
        wanted.insert(entries[static_cast<std::size_t>(place)].key);
    }
    // Out goes what is wanted no more, or stands in another order than before.
    int last = -1;
    for (int row = 0; row < std::ssize(shown_);) {
        const Shown& shown = shown_[static_cast<std::size_t>(row)];
        const int now = wanted.contains(shown.key) ? layout_.placeOf(shown.key) : -1;
        if (now > last) {
            last = now;
            ++row;
            continue;
        }
        beginRemoveRows({}, row, row);
        shown_.erase(shown_.begin() + row);
        endRemoveRows();
    }
    for (int place = begin; place < end; ++place) {
        const int row = place - begin;
        const std::string& key = entries[static_cast<std::size_t>(place)].key;
        const bool isThere =
            row < std::ssize(shown_) && shown_[static_cast<std::size_t>(row)].key == key;
        if (isThere) {
            shown_[static_cast<std::size_t>(row)].place = place;
            continue;
        }
        beginInsertRows({}, row, row);
        shown_.insert(shown_.begin() + row, Shown{key, place});
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
