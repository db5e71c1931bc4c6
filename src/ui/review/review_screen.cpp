#include "ui/review/review_screen.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "model/words.h"
#include "ui/screens/views.h"

namespace morvane::screens {

namespace {

struct PresetWords {
    SweepPreset value;
    const char* label;
};
constexpr std::array presets{PresetWords{SweepPreset::safe, "Safe items"},
                             PresetWords{SweepPreset::all, "All"},
                             PresetWords{SweepPreset::nothing, "None"}};

Choice presetChoice(const AppState& state) {
    Choice choice;
    const std::optional<SweepPreset> active = state.activePreset();
    for (const PresetWords& preset : presets) {
        if (active == preset.value) choice.selected = std::ssize(choice.options);
        choice.options.emplace_back(preset.label);
    }
    return choice;
}

ReviewPanel panelOf(const CleanupItem& item) {
    ReviewPanel panel{
        .title = "What is this?", .text = item.explanation, .location = item.location};
    if (item.revealURL) panel.reveal = Button{.label = "Reveal in Finder"};
    return panel;
}

ReviewRow rowOf(const CleanupItem& item, const AppState& state) {
    ReviewRow row{
        .id = item.id,
        .label = item.name,
        .state = state.sweepSelection->contains(item.id) ? CheckState::on : CheckState::off,
        .badge = badgeOf(item.safety),
        .size = sizeText(megabytes(item.bytes)),
        .open = state.expandedSweepItems->contains(item.id)};
    if (row.open) row.panel = panelOf(item);
    return row;
}

// What of all groups is chosen.
struct Chosen {
    std::ptrdiff_t count = 0;
    double megabytes = 0;
};

// Adds to `chosen` what of the group is.
ReviewGroup groupOf(const SweepGroup& group, const AppState& state, Chosen& chosen) {
    const std::vector<CleanupItem>& items = group.items;
    ReviewGroup told{.id = group.name,
                     .label = group.name,
                     .symbol = group.icon,
                     .count = countText(std::ssize(items), "item")};
    double sum = 0;
    const std::ptrdiff_t before = chosen.count;
    told.rows.reserve(items.size());
    for (const CleanupItem& item : items) {
        sum += megabytes(item.bytes);
        told.rows.push_back(rowOf(item, state));
        if (told.rows.back().state == CheckState::off) continue;
        ++chosen.count;
        chosen.megabytes += megabytes(item.bytes);
    }
    told.size = sizeText(sum);
    told.state = checkState(chosen.count - before, std::ssize(items));
    return told;
}

std::string footerNote(const AppState& state) {
    if (state.sweepProblem->has_value()) return **state.sweepProblem;
    return *state.alwaysUseTrash ? "Goes to the Trash. Nothing is permanently deleted."
                                 : "Deleted right away. This can’t be undone.";
}

Footer footerOf(const AppState& state, const Chosen& chosen) {
    const bool isSweeping = *state.isSweeping;
    return {.size = sizeText(chosen.megabytes),
            .count = countText(chosen.count, "item") + " selected",
            .note = footerNote(state),
            .actions = {{.label = *state.alwaysUseTrash ? "Move to Trash" : "Delete",
                         .symbol = "trash",
                         .enabled = chosen.count > 0 && !isSweeping,
                         .kind = ButtonKind::prominent,
                         .busy = isSweeping}}};
}

double foundMB(const std::vector<SweepGroup>& groups) {
    double sum = 0;
    for (const SweepGroup& group : groups) {
        for (const CleanupItem& item : group.items.get()) sum += megabytes(item.bytes);
    }
    return sum;
}

}  // namespace

ReviewScreen::ReviewScreen(ScreenNeeds needs) : needs_(needs) {
    AppState& state = needs_.state;
    onPress("preset", [&state](const Press& press) {
        state.applyPreset(presets.at(static_cast<std::size_t>(press.index)).value);
    });
    onPress("groups.state", [this](const Press& press) { toggleGroup(press.row); });
    onPress("groups.rows.state",
            [&state](const Press& press) { state.toggleSweepItem(press.row); });
    onPress("groups.rows.open", [&state](const Press& press) {
        const AnimatedChange animated(state.store());
        state.toggleExpanded(press.row);
    });
    onPress("groups.rows.panel.reveal", [this](const Press& press) { reveal(press.row); });
    onPress("footer.actions",
            [&state](const Press&) { state.sweep(state.selectedSweepItems(), std::nullopt); });
}

ReviewContent ReviewScreen::content() const {
    const AppState& state = needs_.state;
    const std::vector<SweepGroup> groups = state.sweepGroups();
    ReviewContent content{.title = "Sweep",
                          .found = sizeText(foundMB(groups)) + " found",
                          .preset = presetChoice(state)};
    if (groups.empty()) {
        content.message = *state.scanPhase == ScanPhase::scanning ? "Looking for things to sweep…"
                                                                  : "Nothing to sweep right now.";
    }
    Chosen chosen;
    for (const SweepGroup& group : groups) content.groups.push_back(groupOf(group, state, chosen));
    content.footer = footerOf(state, chosen);
    return content;
}

void ReviewScreen::appear() {
    AppState& state = needs_.state;
    if (state.scannedAt->has_value() || *state.scanPhase == ScanPhase::scanning) return;
    state.startScan(false);
}

void ReviewScreen::toggleGroup(const std::string& name) {
    AppState& state = needs_.state;
    for (const SweepGroup& group : state.sweepGroups()) {
        if (group.name == name) state.toggleGroup(group, state.checkState(group));
    }
}

void ReviewScreen::reveal(const std::string& id) {
    for (const CleanupItem* item : needs_.state.sweepItemsInPlace()) {
        if (item->id != id || !item->revealURL) continue;
        needs_.state.platform().workspace.reveal(*item->revealURL);
        return;
    }
}

}  // namespace morvane::screens
