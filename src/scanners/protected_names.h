#pragma once

#include <string_view>

namespace morvane::CleanupScanner {

// Folder names of "Caches" that are never an app's cache or an orphan: the browser table or the
// package caches take care of them, or they are stores of the system. Case counts.
[[nodiscard]] bool isProtectedCacheName(std::string_view name);

}  // namespace morvane::CleanupScanner
