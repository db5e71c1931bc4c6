#include "platform/folder/mount_points.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

#include "platform/folder/descriptor.h"

namespace morvane::folder {

namespace {

std::optional<std::string> readWhole(const char* path) {
    const Descriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    if (!file) return std::nullopt;
    std::string text;
    std::array<char, 8'192> part{};
    while (true) {
        const ssize_t got = ::read(file.get(), part.data(), part.size());
        if (got < 0) return std::nullopt;
        if (got == 0) return text;
        text.append(part.data(), static_cast<std::size_t>(got));
    }
}

bool isOctal(char c) {
    return c >= '0' && c <= '7';
}

// The kernel writes blanks, tabs, line ends and backslashes of a path as a backslash and three
// octal digits (proc(5), /proc/pid/mountinfo).
std::string unescaped(std::string_view text) {
    std::string path;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\' && at + 3 < text.size() && isOctal(text[at + 1]) &&
            isOctal(text[at + 2]) && isOctal(text[at + 3])) {
            path += static_cast<char>((text[at + 1] - '0') * 64 + (text[at + 2] - '0') * 8 +
                                      (text[at + 3] - '0'));
            at += 3;
        } else {
            path += text[at];
        }
    }
    return path;
}

// The fifth of the fields that blanks part.
std::string_view mountPointOf(std::string_view line) {
    for (int field = 1; field < 5; ++field) {
        const std::size_t blank = line.find(' ');
        if (blank == std::string_view::npos) return {};
        line.remove_prefix(blank + 1);
    }
    return line.substr(0, line.find(' '));
}

std::optional<std::string> placeOf(int folder) {
    std::array<char, PATH_MAX> place{};
    const std::string link = "/proc/self/fd/" + std::to_string(folder);
    const ssize_t length = ::readlink(link.c_str(), place.data(), place.size());
    if (length <= 0 || static_cast<std::size_t>(length) >= place.size()) return std::nullopt;
    if (place[0] != '/') return std::nullopt;
    return std::string(place.data(), static_cast<std::size_t>(length));
}

}  // namespace

std::optional<std::vector<std::string>> mountsBelow(int folder) {
    std::optional<std::string> top = placeOf(folder);
    const std::optional<std::string> table = readWhole("/proc/self/mountinfo");
    if (!top || !table) return std::nullopt;
    if (*top == "/") top->clear();
    *top += '/';

    std::vector<std::string> below;
    for (std::size_t start = 0; start < table->size();) {
        std::size_t end = table->find('\n', start);
        if (end == std::string::npos) end = table->size();
        const std::string_view line = std::string_view(*table).substr(start, end - start);
        const std::string path = unescaped(mountPointOf(line));
        if (path.size() > top->size() && path.starts_with(*top)) {
            below.push_back(path.substr(top->size() - 1));
        }
        start = end + 1;
    }
    return below;
}

}  // namespace morvane::folder
