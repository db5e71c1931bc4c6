#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "model/history.h"
#include "platform/file_system.h"
#include "platform/remover.h"

namespace morvane {

// The entries of `history`, the newest first, that are newer than the one of that id; none where
// there is no such entry.
[[nodiscard]] std::span<const HistoryEntry> newerThan(const std::string& id,
                                                      const std::vector<HistoryEntry>& history);

// What of `trashed` can still lie in the Trash. A name there is given only once it is free: a place
// that a newer sweep has named holds that sweep's item, and this one's has gone.
[[nodiscard]] std::map<std::string, std::string> withoutPlacesOf(
    std::span<const HistoryEntry> newer, std::map<std::string, std::string> trashed);

// What can be done about a remembered sweep, with those made since. Looks at the disk; could not
// look counts as there.
[[nodiscard]] HistoryState historyState(const HistoryEntry& entry,
                                        std::span<const HistoryEntry> newer,
                                        const FileSystem& files);

// What came of putting the items of an entry back.
struct PutBackOutcome {
    std::int64_t moved = 0;
    std::int64_t blocked = 0;                      // something stands at the old place
    std::map<std::string, std::string> remaining;  // still in the Trash, blocked ones among them
};

// Moves each item from the Trash to its old place, the outermost path first. Nothing is ever
// overwritten; what has gone from the Trash is passed over without a trace.
[[nodiscard]] PutBackOutcome putBack(const std::map<std::string, std::string>& trashed,
                                     const FileSystem& files, Remover& remover);

// Why not everything went back, for the user; nothing when it did.
[[nodiscard]] std::optional<std::string> putBackProblemWords(const PutBackOutcome& outcome);

}  // namespace morvane
