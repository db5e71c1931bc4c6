#pragma once

#include <string>

namespace morvane {

// Where the user is, as far as words and days go: an ICU locale name ("en_GB") and an Olson time
// zone name ("Europe/Berlin"). An unknown zone counts as UTC.
struct Region {
    std::string locale = "en_US";
    std::string timeZone = "UTC";

    bool operator==(const Region&) const = default;
};

}  // namespace morvane
