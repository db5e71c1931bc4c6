#include "ui/window/keyed_list.h"

#include <QSet>
#include <algorithm>
#include <iterator>
#include <set>

namespace morvane {

namespace {

QString keyOf(const QVariant& entry) {
    return entry.toMap().value(QStringLiteral("id")).toString();
}

}  // namespace

void KeyedList::setEntries(const QVariantList& entries) {
    if (entries == entries_) return;
    emit entriesAboutToChange();
    entries_ = entries;
    showWindow();
    emit entriesChanged();
}

void KeyedList::setFirst(int first) {
    if (std::exchange(first_, first) == first) return;
    showWindow();
    emit windowChanged();
}

void KeyedList::setMost(int most) {
    if (std::exchange(most_, most) == most) return;
    showWindow();
    emit windowChanged();
}

void KeyedList::setKept(const QStringList& keys) {
    if (std::exchange(kept_, keys) == keys) return;
    showWindow();
    emit windowChanged();
}

int KeyedList::placeOf(const QString& key) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const QVariant& entry) { return keyOf(entry) == key; });
    return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

QString KeyedList::keyAt(int place) const {
    return place >= 0 && place < total() ? keyOf(entries_.at(place)) : QString();
}

int KeyedList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant KeyedList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case keyRole:
            return row.key;
        case entryRole:
            return row.entry;
        case placeRole:
            return row.place;
        default:
            return {};
    }
}

QHash<int, QByteArray> KeyedList::roleNames() const {
    return {{keyRole, "key"}, {entryRole, "entry"}, {placeRole, "place"}};
}

std::vector<KeyedList::Row> KeyedList::wanted() const {
    const int begin = std::clamp(first_, 0, total());
    const int end = most_ < 0 ? total() : begin + std::min(most_, total() - begin);
    std::set<int> places;
    for (const QString& key : kept_) places.insert(placeOf(key));
    places.erase(-1);
    for (int place = begin; place < end; ++place) places.insert(place);
    std::vector<Row> rows;
    rows.reserve(places.size());
    for (const int place : places) rows.push_back({keyAt(place), entries_.at(place), place});
    return rows;
}

void KeyedList::showWindow() {
    const std::vector<Row> rows = wanted();
    removeWhatIsNotIn(rows);
    for (int index = 0; index < std::ssize(rows); ++index) {
        const Row& row = rows[static_cast<std::size_t>(index)];
        const auto here = std::next(rows_.begin(), index);
        if (here == rows_.end()) {
            insertFrom(rows, index, static_cast<int>(std::ssize(rows)));
            return;
        }
        const auto old =
            std::find_if(here, rows_.end(), [&](const Row& other) { return other.key == row.key; });
        if (old == rows_.end()) {
            insertFrom(rows, index, index + 1);
        } else if (old != here) {
            const int from = static_cast<int>(old - rows_.begin());
            beginMoveRows({}, from, from, {}, index);
            std::rotate(here, old, std::next(old));
            endMoveRows();
        }
        update(index, row);
    }
    if (rowCount() > std::ssize(rows)) {
        beginRemoveRows({}, static_cast<int>(std::ssize(rows)), rowCount() - 1);
        rows_.resize(rows.size());
        endRemoveRows();
    }
}

void KeyedList::removeWhatIsNotIn(const std::vector<Row>& rows) {
    QSet<QString> keys;
    for (const Row& row : rows) keys.insert(row.key);
    for (int index = rowCount() - 1; index >= 0; --index) {
        const auto at = std::next(rows_.begin(), index);
        if (keys.contains(at->key)) continue;
        beginRemoveRows({}, index, index);
        rows_.erase(at);
        endRemoveRows();
    }
}

void KeyedList::insertFrom(const std::vector<Row>& rows, int begin, int end) {
    if (begin == end) return;
    beginInsertRows({}, begin, end - 1);
    rows_.insert(std::next(rows_.begin(), begin), std::next(rows.begin(), begin),
                 std::next(rows.begin(), end));
    endInsertRows();
}

void KeyedList::update(int index, const Row& row) {
    Row& shown = rows_[static_cast<std::size_t>(index)];
    QList<int> roles;
    if (shown.entry != row.entry) roles.append(entryRole);
    if (shown.place != row.place) roles.append(placeRole);
    if (roles.isEmpty()) return;
    shown = row;
    emit dataChanged(this->index(index), this->index(index), roles);
}

}  // namespace morvane
