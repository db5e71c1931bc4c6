#pragma once

#include <string>
#include <string_view>

namespace morvane {

// Whether `text` is a UUID in its hyphenated form (RFC 4122), in capitals or not.
[[nodiscard]] bool isUUID(std::string_view text);

// A new random UUID (version 4), in capitals. Any thread.
[[nodiscard]] std::string makeUUID();

}  // namespace morvane
