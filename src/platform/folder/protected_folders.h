#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/folder/disk_root.h"
#include "platform/folder/item_facts.h"

namespace morvane::folder {

// The folders that never go: "/", the home folder, what lies above it, and the Trash; known by
// every path that names them and by what the file system calls them, since a name in other letters,
// or a folder bound to another place, is the same folder. Any thread.
class ProtectedFolders {
public:
    // Fails where one of the folders may be there but could not be looked at: then nothing may go.
    static Result<ProtectedFolders> find(RemovalCalls& calls, const DiskRoot& disk,
                                         const std::filesystem::path& home);

    // `path` is standardised or canonical.
    [[nodiscard]] bool covers(const std::string& path) const { return paths_.contains(path); }
    [[nodiscard]] bool covers(const ItemFacts& facts) const;

    // The Trash in the disk's own terms as the home folder is named, and with no link in it.
    [[nodiscard]] const std::filesystem::path& trash() const { return trash_; }
    [[nodiscard]] const std::string& canonicalTrash() const { return canonicalTrash_; }

private:
    ProtectedFolders() = default;
    void addPathAndAbove(std::string path);

    std::set<std::string> paths_;
    std::set<std::pair<std::uint64_t, std::uint64_t>> identities_;
    std::filesystem::path trash_;
    std::string canonicalTrash_;
};

}  // namespace morvane::folder
