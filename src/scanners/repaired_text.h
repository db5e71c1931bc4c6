#pragma once

#include <string>
#include <string_view>

namespace morvane::CleanupScanner {

// `bytes` as UTF-8, each byte that is not part of valid UTF-8 replaced by U+FFFD.
[[nodiscard]] std::string repairedUTF8(std::string_view bytes);

}  // namespace morvane::CleanupScanner
