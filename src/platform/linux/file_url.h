#pragma once

#include <filesystem>
#include <string>

namespace morvane::linuxdesktop {

// The file URL of an absolute path, every byte that is not plain in a URL as "%XX" (RFC 8089,
// RFC 3986), so that names that are not UTF-8 arrive as they are.
[[nodiscard]] std::string fileURL(const std::filesystem::path& path);

}  // namespace morvane::linuxdesktop
