#pragma once

#include <compare>
#include <string_view>

namespace morvane {

// Whether this is a version that can be compared: numbers parted by single dots, "1.10.2", at most
// 64 characters.
[[nodiscard]] bool isVersion(std::string_view text);

// Compares number by number, not letter by letter: 1.9 is older than 1.10, and 1.0 is 1. The
// numbers may be of any size. Both are versions.
[[nodiscard]] std::strong_ordering compareVersions(std::string_view left, std::string_view right);

}  // namespace morvane
