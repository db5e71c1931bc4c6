#include "platform/folder/mount_points.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

#include "platform/folder/descriptor.h"
#include "platform/folder/mount_table.h"

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

    const std::optional<std::vector<std::string>> mounts = mountPointsIn(*table);
    if (!mounts) return std::nullopt;
    std::vector<std::string> below;
    for (const std::string& mount : *mounts) {
        if (mount.size() > top->size() && mount.starts_with(*top)) {
            below.push_back(mount.substr(top->size() - 1));
        }
    }
    return below;
}

}  // namespace morvane::folder
