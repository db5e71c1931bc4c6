#include <algorithm>
#include <span>
#include <utility>

#include "core/app_state.h"
#include "core/limits.h"
#include "model/path_text.h"
#include "platform/formats/uuid.h"
#include "platform/remover.h"
#include "removal/put_back.h"

namespace morvane {

namespace {

std::map<std::string, std::string> textsOf(const MovedItems& moved) {
    std::map<std::string, std::string> texts;
    for (const auto& [original, inTrash] : moved) {
        texts.emplace(pathText(original), pathText(inTrash));
    }
    return texts;
}

// The entries that came after the sweep that moved those items; all, where it is none of them.
std::span<const HistoryEntry> madeSince(const std::map<std::string, std::string>& moved,
                                        const std::vector<HistoryEntry>& history) {
    const auto own = std::find_if(history.begin(), history.end(), [&](const HistoryEntry& entry) {
        return std::any_of(moved.begin(), moved.end(), [&](const auto& pair) {
            const auto found = entry.trashed.find(pair.first);
            return found != entry.trashed.end() && found->second == pair.second;
        });
    });
    return {history.begin(), own};
}

// Whether one of the moved items is a key of `trashed`.
bool sharesAnItem(const MovedItems& moved, const std::map<std::string, std::string>& trashed) {
    return std::any_of(moved.begin(), moved.end(),
                       [&](const auto& pair) { return trashed.contains(pathText(pair.first)); });
}

}  // namespace

void AppState::recordSweep(const std::string& summary, const MovedItems& trashed) {
    // A name from the disk may be no text; one such line would keep the whole list from being
    // stored.
    HistoryEntry entry{makeUUID(), now(), isUTF8(summary) ? summary : pathText(summary),
                       textsOf(trashed), false};
    const AnimatedChange animated(store_);
    history.update([&](std::vector<HistoryEntry>& entries) {
        entries.insert(entries.begin(), std::move(entry));
        if (entries.size() > mostHistoryEntries) entries.resize(mostHistoryEntries);
    });
}

HistoryState AppState::historyState(const HistoryEntry& entry) const {
    return morvane::historyState(entry, newerThan(entry.id, *history), platform().files);
}

void AppState::restore(const HistoryEntry& entry) {
    // The entry may be one of the list that is written here.
    const std::string id = entry.id;
    std::vector<HistoryEntry> entries = *history;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const HistoryEntry& each) { return each.id == id; });
    if (found == entries.end()) return;
    const std::map<std::string, std::string> former = found->trashed;
    const PutBackOutcome outcome =
        putBack(withoutPlacesOf(newerThan(id, entries), former), platform().files, needs_.remover);
    if (outcome.moved == 0 && outcome.remaining.empty()) {
        // Everything had gone from the Trash: the row is only to be drawn anew.
        history.setAndRedraw(std::move(entries));
        return;
    }
    found->trashed = outcome.remaining;
    found->restored = outcome.remaining.empty();
    {
        const AnimatedChange animated(store_);
        // A row also draws what the disk says of it, which has changed even where the entry has
        // not.
        history.setAndRedraw(std::move(entries));
    }
    restoreProblem.update([&](std::map<std::string, std::string>& problems) {
        problems.erase(id);
        if (auto words = putBackProblemWords(outcome)) {
            problems.emplace(id, std::move(*words));
        }
    });
    appsScannedAt = std::nullopt;
    filesScannedAt = std::nullopt;
    storageScannedAt = std::nullopt;
    if (sharesAnItem(*menuBarTrashed, former)) {
        menuBarTrashed = MovedItems{};
        menuBarPhase.setIfDifferent(MenuBarPhase::idle);
    }
    refreshFreeSpace();
}

void AppState::undoMenuBarSweep() {
    const MovedItems moved = *menuBarTrashed;
    const std::map<std::string, std::string> texts = textsOf(moved);
    std::vector<HistoryEntry> entries = *history;
    // Failures are left aside, and what stands in the way makes the move itself fail.
    static_cast<void>(putBack(withoutPlacesOf(madeSince(texts, entries), texts), platform().files,
                              needs_.remover));
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const HistoryEntry& entry) {
        return sharesAnItem(moved, entry.trashed);
    });
    if (found != entries.end()) {
        found->restored = true;
        history = std::move(entries);
    }
    menuBarTrashed = MovedItems{};
    menuBarSweptMB = 0;
    menuBarPhase = MenuBarPhase::idle;
    refreshFreeSpace();
    scope_.start(runCrumbs(shared_from_this()));
}

}  // namespace morvane
