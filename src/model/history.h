#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "model/instant.h"

namespace morvane {

// From where an item stood to where it lies in the Trash.
using MovedItems = std::map<std::filesystem::path, std::filesystem::path>;

// One remembered sweep. `trashed` maps the text of the original path to that of the path in the
// Trash and is empty when nothing can be put back.
struct HistoryEntry {
    std::string id;  // a UUID, upper case with hyphens
    Instant date = {};
    std::string summary;
    std::map<std::string, std::string> trashed;
    bool restored = false;

    bool operator==(const HistoryEntry&) const = default;
};

enum class HistoryState : std::uint8_t { putBack, deleted, restorable, emptied };

}  // namespace morvane
