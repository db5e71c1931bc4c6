#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/folder/descriptor.h"

namespace morvane::folder {

// A path that says by itself where its item lies, as long as no link is on the way: the folder that
// holds it, from the top of the disk and without "." or double slashes ("/" for the top), and the
// item's name there.
struct StraightPath {
    std::string folder;
    std::string name;

    [[nodiscard]] std::string whole() const {
        return folder == "/" ? folder + name : folder + "/" + name;
    }
    bool operator==(const StraightPath&) const = default;
};

// Nothing for the top itself, and where only the disk can tell what is meant: a "..", a slash at
// the end, a zero byte.
[[nodiscard]] std::optional<StraightPath> straightPath(std::string_view path);

// Opens `path`, a folder of a StraightPath or the whole of one, below `top` with one question to
// the system, where no link is on the way or at its end: then what is open is what resolving
// component by component leads to. O_CLOEXEC is added to `flags`. None where a link is met,
// anything fails, or the system does not know the question.
[[nodiscard]] Descriptor openStraight(int top, const std::string& path, int flags);

}  // namespace morvane::folder
