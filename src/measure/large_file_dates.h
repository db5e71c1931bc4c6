#pragma once

#include <optional>

#include "model/instant.h"

namespace morvane {

// What is known of a file's life.
struct FileDates {
    std::optional<Instant> opened;    // last use, as the metadata store has it
    std::optional<Instant> added;     // when it came into its folder
    std::optional<Instant> modified;  // of a bundle, the latest inside
    bool hasMetadataItem = false;     // the store knows the file at all
};

struct FileAge {
    std::optional<Instant> lastUsed;  // absent when there is no sign of use
    Instant since;                    // what the age is counted from, never later than now

    bool operator==(const FileAge&) const = default;
};

// A file that the metadata store knows, but not as opened, and that was not modified later than 60
// seconds after it came, was put there and never touched. No date given back is later than `now`.
[[nodiscard]] FileAge ageFrom(const FileDates& dates, Instant now);

}  // namespace morvane
