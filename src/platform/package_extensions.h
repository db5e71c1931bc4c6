#pragma once

#include <string_view>

namespace morvane {

// Whether a folder of that name is a package by its extension alone, for systems that cannot say.
[[nodiscard]] bool isPackageName(std::string_view name);

}  // namespace morvane
