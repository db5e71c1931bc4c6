#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/history.h"

namespace morvane {

// The stored form of the history: a JSON array of objects with the keys "id", "date" (seconds since
// 2001-01-01 00:00:00 UTC), "summary", "trashed" and "restored". Nothing when a text is not UTF-8.
[[nodiscard]] std::optional<std::string> encodeHistory(const std::vector<HistoryEntry>& history);

// Nothing when anything of it is not of that form.
[[nodiscard]] std::optional<std::vector<HistoryEntry>> decodeHistory(std::string_view json);

}  // namespace morvane
