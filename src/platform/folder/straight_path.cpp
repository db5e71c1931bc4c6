#include "platform/folder/straight_path.h"

#include <cstdint>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace morvane::folder {

std::optional<StraightPath> straightPath(std::string_view path) {
    if (path.ends_with('/') || path.find('\0') != std::string_view::npos) return std::nullopt;
    StraightPath found;
    found.folder.reserve(path.size());
    for (std::size_t start = 0; start < path.size();) {
        std::size_t end = path.find('/', start);
        if (end == std::string_view::npos) end = path.size();
        const std::string_view component = path.substr(start, end - start);
        start = end + 1;
        if (component.empty() || component == ".") continue;
        if (component == "..") return std::nullopt;
        if (!found.name.empty()) found.folder.append("/").append(found.name);
        found.name = component;
    }
    if (found.name.empty()) return std::nullopt;
    if (found.folder.empty()) found.folder = "/";
    return found;
}

Descriptor openStraight(int top, const std::string& path, int flags) {
    open_how how{};
    how.flags = static_cast<std::uint64_t>(flags | O_CLOEXEC);
    how.resolve = RESOLVE_NO_SYMLINKS;
    const char* const below = path == "/" ? "." : path.c_str() + 1;
    return Descriptor(static_cast<int>(::syscall(SYS_openat2, top, below, &how, sizeof how)));
}

}  // namespace morvane::folder
