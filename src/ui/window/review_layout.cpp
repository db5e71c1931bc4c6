#include "ui/window/review_layout.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr double topPadding = 4;
constexpr double bottomPadding = 20;
constexpr double betweenCards = 14;
constexpr double headerHeight = 44;
constexpr double rowHeight = 42;

}  // namespace

void ReviewLayout::build(const std::vector<screens::ReviewGroup>& groups,
                         const std::function<double(const std::string& key)>& panelHeight) {
    entries_.clear();
    cards_.clear();
    places_.clear();
    double y = topPadding;
    const auto add = [&](std::string key, int group, int row, double height) {
        places_.emplace(key, static_cast<int>(entries_.size()));
        entries_.push_back({std::move(key), group, row, y, height});
        y += height;
    };
    for (int group = 0; group < std::ssize(groups); ++group) {
        const screens::ReviewGroup& each = groups[static_cast<std::size_t>(group)];
        if (group > 0) y += betweenCards;
        const double cardTop = y;
        add("group:" + each.id, group, -1, headerHeight);
        for (int row = 0; row < std::ssize(each.rows); ++row) {
            const screens::ReviewRow& item = each.rows[static_cast<std::size_t>(row)];
            std::string key = "row:" + item.id;
            const double height = rowHeight + (item.open ? panelHeight(key) : 0);
            add(std::move(key), group, row, height);
        }
        cards_.push_back({cardTop, y - cardTop});
    }
    height_ = y + bottomPadding;
}

int ReviewLayout::placeOf(const std::string& key) const {
    const auto found = places_.find(key);
    return found == places_.end() ? -1 : found->second;
}

int ReviewLayout::firstBelow(double y) const {
    const auto found = std::partition_point(
        entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.bottom() <= y; });
    return static_cast<int>(found - entries_.begin());
}

}  // namespace morvane
