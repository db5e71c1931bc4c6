#include "measure/large_file_dates.h"

#include <algorithm>

namespace morvane {

namespace {

// Copying sets the modification date a little after the item has come into its folder.
constexpr std::chrono::seconds arrivalTakes{60};

bool isUntouched(const FileDates& dates) {
    if (dates.opened || !dates.hasMetadataItem || !dates.added || !dates.modified) return false;
    const Instant added = std::min(*dates.added, Instant::max() - arrivalTakes);
    return *dates.modified <= added + arrivalTakes;
}

}  // namespace

FileAge ageFrom(const FileDates& dates, Instant now) {
    // An absent date is less than every other.
    std::optional<Instant> lastUsed = std::max(dates.opened, dates.modified);
    if (lastUsed) lastUsed = std::min(*lastUsed, now);
    if (isUntouched(dates)) lastUsed.reset();
    if (lastUsed) return {lastUsed, *lastUsed};
    const std::optional<Instant> start = dates.added ? dates.added : dates.modified;
    return {std::nullopt, std::min(start.value_or(now), now)};
}

}  // namespace morvane
