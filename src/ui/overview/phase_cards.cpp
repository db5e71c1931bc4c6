#include "ui/overview/phase_cards.h"

#include <algorithm>

#include "model/words.h"
#include "ui/screens/views.h"

namespace morvane::screens {

namespace {

IdleCard idleCard() {
    return {.title = "Ready for a tidy-up?",
            .text =
                "Morvane looks for caches, leftovers and forgotten files, then explains each "
                "one. Nothing is removed until you say so.",
            .button = {.label = "Sweep",
                       .symbol = "morvane",
                       .kind = ButtonKind::prominent,
                       .key = "Return"},
            .foot = "Usually takes under a minute."};
}

ScanningRow scanningRow(const AppState& state, ScanCategory category) {
    const ScanCategoryWords& words = wordsOf(category);
    ScanningRow row{.id = std::string(words.raw),
                    .label = std::string(words.scanningTitle),
                    .finished = state.finishedCategories->contains(category)};
    if (!row.finished) {
        row.value = "Looking…";
    } else if (category == ScanCategory::backups && !hasFullDiskAccess(state)) {
        row.value = "Needs access";
    } else {
        row.value = sizeText(state.categoryMB(category));
    }
    return row;
}

ScanningCard scanningCard(const AppState& state) {
    const auto finished = static_cast<double>(state.finishedCategories->size());
    ScanningCard card{
        .title = "Sweeping through your Mac…",
        .amount = sizeText(state.foundSoFarMB()),
        .text = "found so far. Nothing has been touched.",
        .fraction = std::clamp(finished / static_cast<double>(allScanCategories.size()), 0.0, 1.0),
        .location = *state.scanLocation,
        .button = {.label = "Stop", .key = "Escape"}};
    for (ScanCategory category : allScanCategories) {
        card.rows.push_back(scanningRow(state, category));
    }
    return card;
}

ResultsCard resultsCard(const AppState& state) {
    const double safe = state.safeMB();
    double all = 0;
    for (ScanCategory category : allScanCategories) all += state.categoryMB(category);
    const double rest = std::max(0.0, all - safe);
    ResultsCard card{
        .title = safe > 0 ? sizeText(safe) + " is safe to sweep right now"
                          : "Nothing needs sweeping right now",
        .text = (safe > 0 ? "Another " : "But ") + sizeText(rest) +
                " is worth a look. Nothing is removed until you choose.",
        .scanAgain = {.label = "Scan Again"},
        .review = {.label = "Review & Sweep", .kind = ButtonKind::prominent, .key = "Return"},
        .leftAlone = {.symbol = "checkmark.shield",
                      .title = "What Morvane leaves alone",
                      .text = "Your documents, photos, music and mail are never pre-selected. They "
                              "only appear in Large Files, and only you can pick them."}};
    for (ScanCategory category : allScanCategories) {
        card.cards.push_back(categoryCard(state, category));
    }
    return card;
}

SuccessCard successCard(const AppState& state) {
    SuccessCard card{.title = "All swept! You freed " + sizeText(*state.freedMB),
                     .button = {.label = "Done"}};
    if (*state.alwaysUseTrash) {
        card.text =
            "Everything went to the Trash, so you can still change your mind until you "
            "empty it.";
        card.openTrash = Button{.label = "Open Trash"};
    } else {
        card.text = "Everything was deleted right away.";
    }
    return card;
}

SpotlessCard spotlessCard() {
    return {.title = "Spotless.",
            .text = "Nothing to sweep right now.",
            .detail = "Morvane found nothing worth removing. You can scan again any time.",
            .button = {.label = "Scan Again"}};
}

std::string leftoversWords(std::size_t count) {
    if (count == 0) return "No files left behind by apps you’ve deleted.";
    const std::string who = count == 1 ? "an app" : std::to_string(count) + " apps";
    return "Files left behind by " + who + " you’ve already deleted.";
}

std::string backupsWords(const AppState& state) {
    if (!hasFullDiskAccess(state)) {
        return "Allow Full Disk Access so Morvane can look for device backups.";
    }
    const std::vector<CleanupItem>& items = *state.backupItems;
    if (items.empty()) return "No iPhone or iPad backups on this Mac.";
    if (items.size() == 1) return "One backup: " + items.front().name + ".";
    return std::to_string(items.size()) + " device backups. Check which devices you still have.";
}

std::string categoryWords(const AppState& state, ScanCategory category) {
    switch (category) {
        case ScanCategory::crumbs:
            return "Caches, old logs and installers apps rebuild or no longer need.";
        case ScanCategory::developer:
            return "Xcode builds, old simulators, package caches and Docker images.";
        case ScanCategory::leftovers:
            return leftoversWords(state.leftoverItems->size());
        case ScanCategory::largeFiles:
            return "Big files you haven’t opened in over a year. Only you decide.";
        case ScanCategory::backups:
            break;
    }
    return backupsWords(state);
}

}  // namespace

CategoryCard categoryCard(const AppState& state, ScanCategory category) {
    const ScanCategoryWords& words = wordsOf(category);
    const bool asksForAccess = category == ScanCategory::backups && !hasFullDiskAccess(state);
    return {.id = std::string(words.raw),
            .label = std::string(words.title),
            .symbol = std::string(words.symbol),
            .amount = sizeText(state.categoryMB(category)),
            .text = categoryWords(state, category),
            .call = asksForAccess ? "Allow Access" : "Review"};
}

PhaseCard phaseCard(const AppState& state) {
    switch (*state.scanPhase) {
        case ScanPhase::idle:
            return idleCard();
        case ScanPhase::scanning:
            return scanningCard(state);
        case ScanPhase::done:
            return resultsCard(state);
        case ScanPhase::success:
            return successCard(state);
        case ScanPhase::empty:
            break;
    }
    return spotlessCard();
}

}  // namespace morvane::screens
