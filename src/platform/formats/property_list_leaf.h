#pragma once

#include <string_view>

namespace morvane {

// Whether `content`, as it stands between the tags called `name` of an XML property list, spells a
// value of that kind. The library takes an integer, a real or a date that spells nothing for some
// value all the same. Texts and data always pass.
[[nodiscard]] bool isSoundLeaf(std::string_view name, std::string_view content);

}  // namespace morvane
