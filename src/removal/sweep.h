#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/cleanup.h"
#include "model/history.h"
#include "platform/file_system.h"
#include "platform/remover.h"

namespace morvane {

// What one sweep came to.
struct SweepOutcome {
    std::int64_t freedBytes = 0;
    std::set<std::string> removedIDs;  // items that are wholly gone
    std::int64_t failures = 0;         // items that are not
    MovedItems trashed;                // empty when deleting outright
    // What is left of items of which only some parts went, by id.
    std::map<std::string, CleanupItem> partials;
};

// The paths of all items that go as files, in item order.
[[nodiscard]] std::vector<RemovalTarget> removalTargets(const std::vector<CleanupItem>& items);

// Enters into `outcome` what became of an item that went as files, by looking at each part.
void judgeTrashItem(const CleanupItem& item, const FileSystem& files, SweepOutcome& outcome);

// Enters into `outcome` what became of an item that a program removed: `status` is its exit
// status, nothing when it could not be started.
void judgeCommandItem(const CleanupItem& item, std::optional<int> status, SweepOutcome& outcome);

// The items as they are after the sweep: gone ones left out, partly gone ones replaced, in order.
[[nodiscard]] std::vector<CleanupItem> itemsAfter(const SweepOutcome& outcome,
                                                  std::vector<CleanupItem> items);
// The same for sections; one left without items goes.
[[nodiscard]] std::vector<DevSection> sectionsAfter(const SweepOutcome& outcome,
                                                    std::vector<DevSection> sections);

// The line of the history: `label`, or a count of at least one item, and the size.
[[nodiscard]] std::string sweepSummary(const SweepOutcome& outcome,
                                       const std::optional<std::string>& label);

// What could not be removed, for the user; nothing when all went.
[[nodiscard]] std::optional<std::string> sweepProblemWords(const SweepOutcome& outcome);

}  // namespace morvane
