#include "removal/sweep.h"

#include <algorithm>
#include <utility>

#include "model/words.h"
#include "removal/discard.h"

namespace morvane {

std::vector<RemovalTarget> removalTargets(const std::vector<CleanupItem>& items) {
    std::vector<RemovalTarget> targets;
    for (const CleanupItem& item : items) {
        const std::vector<CleanupPart>* parts = trashParts(item);
        if (parts == nullptr) continue;
        for (const CleanupPart& part : *parts) targets.push_back(targetOf(part));
    }
    return targets;
}

void judgeTrashItem(const CleanupItem& item, const FileSystem& files, SweepOutcome& outcome) {
    std::vector<CleanupPart> left;
    for (const CleanupPart& part : *trashParts(item)) {
        if (isGone(files, part.url)) {
            outcome.freedBytes += part.bytes;
        } else {
            left.push_back(part);
        }
    }
    if (left.empty()) {
        outcome.removedIDs.insert(item.id);
    } else {
        ++outcome.failures;
        outcome.partials.insert_or_assign(item.id, withParts(item, std::move(left)));
    }
}

void judgeCommandItem(const CleanupItem& item, std::optional<int> status, SweepOutcome& outcome) {
    if (status != 0) {
        ++outcome.failures;
        return;
    }
    outcome.freedBytes += item.bytes;
    outcome.removedIDs.insert(item.id);
}

std::vector<CleanupItem> itemsAfter(const SweepOutcome& outcome, std::vector<CleanupItem> items) {
    std::erase_if(items,
                  [&](const CleanupItem& item) { return outcome.removedIDs.contains(item.id); });
    for (CleanupItem& item : items) {
        const auto partial = outcome.partials.find(item.id);
        if (partial != outcome.partials.end()) item = partial->second;
    }
    return items;
}

std::vector<DevSection> sectionsAfter(const SweepOutcome& outcome,
                                      std::vector<DevSection> sections) {
    for (DevSection& section : sections) {
        section.items = itemsAfter(outcome, std::move(section.items));
    }
    std::erase_if(sections, [](const DevSection& section) { return section.items.empty(); });
    return sections;
}

std::string sweepSummary(const SweepOutcome& outcome, const std::optional<std::string>& label) {
    const auto count =
        std::max<std::int64_t>(static_cast<std::int64_t>(outcome.removedIDs.size()), 1);
    return label.value_or(countText(count, "item")) + " · " +
           sizeText(static_cast<double>(outcome.freedBytes) / 1e6);
}

std::optional<std::string> sweepProblemWords(const SweepOutcome& outcome) {
    if (outcome.failures < 1) return std::nullopt;
    if (outcome.removedIDs.empty()) {
        return "Nothing could be removed. It may be in use, or macOS may not allow it.";
    }
    return countText(outcome.failures, "item") + " couldn’t be removed. They may be in use.";
}

}  // namespace morvane
