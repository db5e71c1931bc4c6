#include "removal/put_back.h"

#include <algorithm>
#include <vector>

#include "model/path_text.h"
#include "model/words.h"
#include "removal/discard.h"

namespace morvane {

HistoryState historyState(const HistoryEntry& entry, const FileSystem& files) {
    if (entry.restored) return HistoryState::putBack;
    if (entry.trashed.empty()) return HistoryState::deleted;
    const bool inTrash =
        std::any_of(entry.trashed.begin(), entry.trashed.end(),
                    [&](const auto& pair) { return !isGone(files, pathFromText(pair.second)); });
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
