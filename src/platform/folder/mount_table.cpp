#include "platform/folder/mount_table.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <unistd.h>

#include "platform/folder/descriptor.h"
#include "platform/folder/free_name.h"
#include "platform/folder/item_facts.h"

namespace morvane::folder {

namespace {

// The system tells where an open item lies only up to a page of text; a page is 4 KiB or more.
constexpr std::size_t smallestPage = 4096;
constexpr std::size_t largestPage = 65536;

bool isOctal(char letter) {
    return letter >= '0' && letter <= '7';
}

std::string unescaped(std::string_view field) {
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && isOctal(field[i + 1]) &&
            isOctal(field[i + 2]) && isOctal(field[i + 3])) {
            const int value =
                (field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0');
            text += static_cast<char>(value);
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

// The whole mount table, or an errno through `code`.
std::optional<std::string> readTable(RemovalCalls& calls, int& code) {
    const Descriptor table(calls.openMountTable());
    std::string text;
    std::array<char, 8192> buffer{};
    while (table) {
        const ssize_t count = ::read(table.get(), buffer.data(), buffer.size());
        if (count == 0) return text;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) break;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    code = errno;
    return std::nullopt;
}

bool covers(std::string_view folder, std::string_view path) {
    if (folder == "/" || folder == path) return true;
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

}  // namespace

std::optional<std::vector<std::string>> mountPointsIn(std::string_view table) {
    std::vector<std::string> points;
    for (std::size_t start = 0; start < table.size();) {
        const std::size_t end = std::min(table.find('\n', start), table.size());
        std::string_view line = table.substr(start, end - start);
        start = end + 1;
        for (int field = 1; field < 5; ++field) {
            const std::size_t blank = line.find(' ');
            if (blank == std::string_view::npos) return std::nullopt;
            line.remove_prefix(blank + 1);
        }
        points.push_back(unescaped(line.substr(0, line.find(' '))));
    }
    return points;
}

Result<bool> holdsMount(RemovalCalls& calls, int folder, const std::string& name) {
    int code = 0;
    const std::optional<std::string> text = readTable(calls, code);
    if (!text) return refusal({}, code);
    const std::optional<std::vector<std::string>> points = mountPointsIn(*text);
    if (!points || points->empty()) return refusal({}, EIO);

    std::string place(largestPage, '\0');
    const ssize_t length = calls.realPath(folder, place.data(), place.size());
    if (length < 0 && errno == ENAMETOOLONG) {
        // A folder that lies too deep to be told has no mount below it unless that one's place is
        // longer still.
        return std::ranges::any_of(*points, [](const std::string& point) {
            return point.size() + longestName >= smallestPage;
        });
    }
    if (length < 0) return refusal({}, errno);
    if (static_cast<std::size_t>(length) == place.size()) return refusal({}, ENAMETOOLONG);
    place.resize(static_cast<std::size_t>(length));
    if (!place.starts_with('/')) return refusal({}, EIO);
    if (place != "/") place += '/';
    place += name;
    return std::ranges::any_of(*points,
                               [&](const std::string& point) { return covers(place, point); });
}

}  // namespace morvane::folder
