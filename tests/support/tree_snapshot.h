#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <sys/types.h>

namespace morvane::test {

// One item of a tree, with all that must stay when nothing may have touched it. The time of last
// access is left out, since looking changes it.
struct TreeItem {
    char kind =
        '?';  // f file, d folder, l link, p pipe, s socket, o other, ? could not be looked at
    mode_t mode = 0;
    uid_t owner = 0;
    ino_t inode = 0;
    std::int64_t modified = 0;  // nanoseconds since 1970
    std::int64_t size = 0;      // of files
    std::uint64_t content = 0;  // a hash (FNV-1a) of a file's bytes
    std::string linkTarget;
    std::string hardLinkOf;  // the first path in the tree, by bytes, of the same file; else empty
    int error = 0;           // errno of what could not be looked at or read

    bool operator==(const TreeItem&) const = default;
};

// The items of a tree by their paths from its top, which itself is "".
using TreeSnapshot = std::map<std::string, TreeItem>;

// Looks at everything below `root`, which is a path of this machine; follows no link and opens
// files and folders alone. What could not be looked at is an item with an error, never left out.
[[nodiscard]] TreeSnapshot takeSnapshot(const std::filesystem::path& root);

// The tree without what lies in the folder at its path `below`, and that folder itself too.
[[nodiscard]] TreeSnapshot without(TreeSnapshot tree, const std::string& below);

// What differs, one line each: the path and what of it; empty when the trees are the same.
[[nodiscard]] std::string differences(const TreeSnapshot& before, const TreeSnapshot& after);

}  // namespace morvane::test
