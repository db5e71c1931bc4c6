#include "platform/linux/file_url.h"

#include <string_view>

namespace morvane::linuxdesktop {

namespace {

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

}  // namespace

std::string fileURL(const std::filesystem::path& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char c : path.native()) {
        if (isPlain(c)) {
            url += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        url += '%';
        url += digits[byte / 16U];
        url += digits[byte % 16U];
    }
    return url;
}

}  // namespace morvane::linuxdesktop
