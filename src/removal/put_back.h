#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "model/history.h"
#include "platform/file_system.h"
#include "platform/remover.h"

namespace morvane {

// What can be done about a remembered sweep. Looks at the disk; could not look counts as there.
[[nodiscard]] HistoryState historyState(const HistoryEntry& entry, const FileSystem& files);

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
