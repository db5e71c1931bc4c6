#pragma once

#include <string>

namespace morvane::folder {

// The most bytes a name may have.
inline constexpr std::size_t longestName = 255;

// `name` told apart by a number: "notes 2.txt", "Caches 3", ".profile 2". The number stands before
// the extension, which is what follows the last dot when that is no dot at the start, is at most 32
// bytes and holds no blank. Where that would pass 255 bytes, the end of the part before the number
// is cut: between two letters where it is UTF-8, else between two bytes.
[[nodiscard]] std::string numberedName(const std::string& name, int number);

}  // namespace morvane::folder
