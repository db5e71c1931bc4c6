#include "removal/put_back.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "model/path_text.h"
#include "model/words.h"
#include "removal/discard.h"

namespace morvane {

std::span<const HistoryEntry> newerThan(const std::string& id,
                                        const std::vector<HistoryEntry>& history) {
    const auto found = std::find_if(history.begin(), history.end(),
                                    [&](const HistoryEntry& each) { return each.id == id; });
    if (found == history.end()) return {};
    return {history.begin(), found};
}

std::map<std::string, std::string> withoutPlacesOf(std::span<const HistoryEntry> newer,
                                                   std::map<std::string, std::string> trashed) {
    std::unordered_set<std::string_view> taken;
    for (const HistoryEntry& entry : newer) {
        for (const auto& [original, inTrash] : entry.trashed) taken.insert(inTrash);
    }
    std::erase_if(trashed, [&](const auto& pair) { return taken.contains(pair.second); });
    return trashed;
}

HistoryState historyState(const HistoryEntry& entry, std::span<const HistoryEntry> newer,
                          const FileSystem& files) {
    if (entry.restored) return HistoryState::putBack;
    if (entry.trashed.empty()) return HistoryState::deleted;
    const std::map<std::string, std::string> own = withoutPlacesOf(newer, entry.trashed);
    const bool inTrash = std::any_of(own.begin(), own.end(), [&](const auto& pair) {
        return !isGone(files, pathFromText(pair.second));
    });
    return inTrash ? HistoryState::restorable : HistoryState::emptied;
}

PutBackOutcome putBack(const std::map<std::string, std::string>& trashed, const FileSystem& files,
                       Remover& remover) {
    using Pair = std::pair<std::string, std::string>;
    std::vector<Pair> pairs(trashed.begin(), trashed.end());
    // A folder goes back before what was taken out of it, or it would find its place taken.
    std::stable_sort(pairs.begin(), pairs.end(), [](const Pair& left, const Pair& right) {
        return std::count(left.first.begin(), left.first.end(), '/') <
               std::count(right.first.begin(), right.first.end(), '/');
    });

    PutBackOutcome outcome;
    for (const Pair& pair : pairs) {
        const std::filesystem::path original = pathFromText(pair.first);
        const std::filesystem::path inTrash = pathFromText(pair.second);
        if (isGone(files, inTrash)) continue;
        if (!isGone(files, original)) {
            ++outcome.blocked;
            outcome.remaining.insert(pair);
        } else if (remover.putBack(inTrash, original)) {
            outcome.remaining.insert(pair);
        } else {
            ++outcome.moved;
        }
    }
    return outcome;
}

std::optional<std::string> putBackProblemWords(const PutBackOutcome& outcome) {
    const auto left = static_cast<std::int64_t>(outcome.remaining.size());
    if (left == 0) return std::nullopt;
    if (outcome.blocked == left) {
        return "Something new is in the way of " + countText(outcome.blocked, "item") + ".";
    }
    return countText(left, "item") + " couldn’t be put back.";
}

}  // namespace morvane
