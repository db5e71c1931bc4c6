#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/instant.h"
#include "model/region.h"

namespace morvane {

// A size in decimal megabytes: "1.2 GB", "999 MB", "500 KB"; never less than "1 KB".
[[nodiscard]] std::string sizeText(double mb);

// A capacity in decimal gigabytes: "512 GB", "99.5 GB", "64 GB".
[[nodiscard]] std::string capacityText(double gb);

// How long ago `date` was, by calendar days of `region`: "Today", "Last week", "2 years ago";
// "Never opened" without a date.
[[nodiscard]] std::string relativeDayText(std::optional<Instant> date, Instant now,
                                          const Region& region);

// The same in lower case, for the middle of a sentence.
[[nodiscard]] std::string relativeDayWords(std::optional<Instant> date, Instant now,
                                           const Region& region);

// The label of a sweep in the history: "Today, 12:00", "3 March", "3 March 2025", in the user's
// language and order.
[[nodiscard]] std::string sweepDateText(Instant date, Instant now, const Region& region);

// The long date without a time: "2 March 2026".
[[nodiscard]] std::string longDateText(Instant date, const Region& region);

// The small line at the head of the Overview.
[[nodiscard]] std::string lastSweptText(std::optional<Instant> lastSweptAt, Instant now,
                                        const Region& region);

// "1 item", "2 items", "0 items": for nouns that take an "s".
[[nodiscard]] std::string countText(std::int64_t count, std::string_view noun);

}  // namespace morvane
