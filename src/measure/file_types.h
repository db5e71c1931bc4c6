#pragma once

#include <optional>
#include <string_view>

#include "model/vocabulary.h"

namespace morvane {

// What is known of a type of plain files by its extension, given in lower case.
[[nodiscard]] std::optional<FileKind> kindOfType(std::string_view extension);
// Whether files of that type are, or carry, programs.
[[nodiscard]] bool isExecutableType(std::string_view extension);

}  // namespace morvane
