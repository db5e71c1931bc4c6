#include <algorithm>
#include <iterator>
#include <utility>

#include "core/app_state.h"
#include "core/ignore_rules.h"

namespace morvane {

namespace {

std::set<std::string> idsOf(const std::vector<CleanupItem>& items) {
    std::set<std::string> ids;
    for (const CleanupItem& item : items) ids.insert(item.id);
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

std::vector<CleanupItem> AppState::sweepItems() const {
    std::vector<CleanupItem> items;
    for (const auto* list : {&crumbItems, &downloadItems, &leftoverItems, &backupItems}) {
        items.insert(items.end(), list->get().begin(), list->get().end());
    }
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
    std::erase_if(groups, [](const SweepGroup& group) { return group.items.empty(); });
    return groups;
}

std::set<std::string> AppState::safeSelection() const {
    return safeIDs(sweepItems());
}

double AppState::safeMB() const {
    double sum = 0;
    for (const CleanupItem& item : sweepItems()) {
        if (item.safety != Safety::review) sum += static_cast<double>(item.bytes) / 1e6;
    }
    return sum;
}

std::vector<CleanupItem> AppState::selectedSweepItems() const {
    return chosen(sweepItems(), *sweepSelection);
}

std::vector<CleanupItem> AppState::selectedDevItems() const {
    return chosen(devItems(), *devSelection);
}

std::optional<SweepPreset> AppState::activePreset() const {
    if (sweepSelection->empty()) return SweepPreset::nothing;
    if (*sweepSelection == safeSelection()) return SweepPreset::safe;
    if (sweepSelection->size() == sweepItems().size()) return SweepPreset::all;
    return std::nullopt;
}

void AppState::applyPreset(SweepPreset preset) {
    switch (preset) {
        case SweepPreset::safe:
            sweepSelection = safeSelection();
            break;
        case SweepPreset::all:
            sweepSelection = idsOf(sweepItems());
            break;
        case SweepPreset::nothing:
            sweepSelection = std::set<std::string>{};
            break;
    }
}

CheckState AppState::checkState(const SweepGroup& group) const {
    const auto count =
        std::count_if(group.items.begin(), group.items.end(),
                      [&](const CleanupItem& item) { return sweepSelection->contains(item.id); });
    if (count == 0) return CheckState::off;
    return count == std::ssize(group.items) ? CheckState::on : CheckState::mixed;
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
        for (const CleanupItem& item : group.items) {
            if (state == CheckState::on) {
                ids.erase(item.id);
            } else {
                ids.insert(item.id);
            }
        }
    });
}

}  // namespace morvane
