#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "core/app_state.h"

namespace morvane {

namespace {

std::vector<const CleanupItem*> safeOnes(std::vector<const CleanupItem*> items) {
    std::erase_if(items, [](const CleanupItem* item) { return needsReview(*item); });
    return items;
}

// Whether the ids of `items` are exactly `ids`.
bool areExactly(const std::vector<const CleanupItem*>& items, const std::set<std::string>& ids) {
    std::unordered_set<std::string_view> own;
    for (const CleanupItem* item : items) own.insert(item->id);
    return own.size() == ids.size() &&
           std::all_of(ids.begin(), ids.end(),
                       [&](const std::string& id) { return own.contains(id); });
}

std::set<std::string> idsOf(const std::vector<const CleanupItem*>& items) {
    std::set<std::string> ids;
    for (const CleanupItem* item : items) ids.insert(item->id);
    return ids;
}

std::vector<CleanupItem> chosen(std::vector<CleanupItem> items, const std::set<std::string>& ids) {
    std::erase_if(items, [&](const CleanupItem& item) { return !ids.contains(item.id); });
    return items;
}

void toggle(Observable<std::set<std::string>>& ids, const std::string& id) {
    ids.update([&](std::set<std::string>& set) {
        if (set.erase(id) == 0) set.insert(id);
    });
}

}  // namespace

std::vector<const CleanupItem*> AppState::sweepItemsInPlace() const {
    std::vector<const CleanupItem*> items;
    for (const auto* list : {&crumbItems, &downloadItems, &leftoverItems, &backupItems}) {
        for (const CleanupItem& item : **list) items.push_back(&item);
    }
    return items;
}

std::vector<CleanupItem> AppState::sweepItems() const {
    std::vector<CleanupItem> items;
    for (const CleanupItem* item : sweepItemsInPlace()) items.push_back(*item);
    return items;
}

std::vector<CleanupItem> AppState::devItems() const {
    std::vector<CleanupItem> items;
    if (!devSections->has_value()) return items;
    for (const DevSection& section : **devSections) {
        items.insert(items.end(), section.items.begin(), section.items.end());
    }
    return items;
}

std::vector<SweepGroup> AppState::sweepGroups() const {
    std::vector<SweepGroup> groups{{"System Crumbs", "sparkles", *crumbItems},
                                   {"Downloads", "arrow.down.to.line", *downloadItems},
                                   {"App Leftovers", "shippingbox", *leftoverItems},
                                   {"iPhone Backups", "iphone", *backupItems}};
    std::erase_if(groups, [](const SweepGroup& group) { return group.items.get().empty(); });
    return groups;
}

std::set<std::string> AppState::safeSelection() const {
    return idsOf(safeOnes(sweepItemsInPlace()));
}

double AppState::safeMB() const {
    double sum = 0;
    for (const CleanupItem* item : safeOnes(sweepItemsInPlace()))
        sum += static_cast<double>(item->bytes) / 1e6;
    return sum;
}

std::vector<CleanupItem> AppState::selectedSweepItems() const {
    std::vector<CleanupItem> items;
    for (const CleanupItem* item : sweepItemsInPlace()) {
        if (sweepSelection->contains(item->id)) items.push_back(*item);
    }
    return items;
}

std::vector<CleanupItem> AppState::selectedDevItems() const {
    return chosen(devItems(), *devSelection);
}

std::optional<SweepPreset> AppState::activePreset() const {
    if (sweepSelection->empty()) return SweepPreset::nothing;
    if (areExactly(safeOnes(sweepItemsInPlace()), *sweepSelection)) return SweepPreset::safe;
    if (sweepSelection->size() == sweepItemsInPlace().size()) return SweepPreset::all;
    return std::nullopt;
}

void AppState::applyPreset(SweepPreset preset) {
    switch (preset) {
        case SweepPreset::safe:
            sweepSelection = safeSelection();
            break;
        case SweepPreset::all:
            sweepSelection = idsOf(sweepItemsInPlace());
            break;
        case SweepPreset::nothing:
            sweepSelection = std::set<std::string>{};
            break;
    }
}

CheckState AppState::checkState(const SweepGroup& group) const {
    const std::vector<CleanupItem>& items = group.items;
    const auto count = std::count_if(items.begin(), items.end(), [&](const CleanupItem& item) {
        return sweepSelection->contains(item.id);
    });
    return morvane::checkState(count, std::ssize(items));
}

void AppState::toggleSweepItem(const std::string& id) {
    toggle(sweepSelection, id);
}
void AppState::toggleDevItem(const std::string& id) {
    toggle(devSelection, id);
}
void AppState::toggleExpanded(const std::string& id) {
    toggle(expandedSweepItems, id);
}

void AppState::toggleGroup(const SweepGroup& group, CheckState state) {
    sweepSelection.update([&](std::set<std::string>& ids) {
        for (const CleanupItem& item : group.items.get()) {
            if (state == CheckState::on) {
                ids.erase(item.id);
            } else {
                ids.insert(item.id);
            }
        }
    });
}

}  // namespace morvane
