#include "platform/folder/free_name.h"

#include <string_view>

#include "model/path_text.h"

namespace morvane::folder {

namespace {

constexpr std::size_t longestExtension = 32;

// Where the extension of `name` begins, with its dot; the end where it has none.
std::size_t extensionStart(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot + 1 == name.size()) return name.size();
    if (name.find_first_not_of('.') > dot) return name.size();  // ".profile", "..data"
    const std::string_view extension = name.substr(dot + 1);
    const bool fits =
        extension.size() <= longestExtension && extension.find(' ') == std::string_view::npos;
    return fits ? dot : name.size();
}

// The first `room` bytes of `stem`, or fewer so that no letter is cut in two.
std::string_view cutAt(std::string_view stem, std::size_t room) {
    if (stem.size() <= room) return stem;
    if (!isUTF8(stem)) return stem.substr(0, room);
    std::size_t end = room;
    while (end > 0 && (static_cast<unsigned char>(stem[end]) & 0xC0U) == 0x80U) --end;
    return stem.substr(0, end);
}

}  // namespace

std::string numberedName(const std::string& name, int number) {
    const std::size_t dot = extensionStart(name);
    const std::string tail = " " + std::to_string(number) + name.substr(dot);
    const std::string_view stem = std::string_view(name).substr(0, dot);
    return std::string(cutAt(stem, longestName - tail.size())) + tail;
}

}  // namespace morvane::folder
