#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>

#include "model/cleanup.h"
#include "platform/failure.h"
#include "platform/folder/removal_calls.h"

namespace morvane::folder {

// What decides whether an item may go.
struct ItemFacts {
    FolderIdentity identity;  // of the item itself, whatever it is
    bool isFolder = false;
    uid_t owner = 0;
    // The mount it is reached through. A folder bound to another place keeps its device number, so
    // that the mount is what tells one from the other.
    std::uint64_t mount = 0;
    bool isMountRoot = false;

    bool operator==(const ItemFacts&) const = default;
};

// Looks at the item `name` of an open folder, or at the folder itself where `name` is empty; a link
// is looked at itself. Where the system does not tell the mount that is a failure too. The path of
// a failure is left empty.
[[nodiscard]] Result<ItemFacts> lookAt(RemovalCalls& calls, int folder, const std::string& name);

// A failure by which Morvane, or the file system on its behalf, would not act; `code` is the
// system's reason where it gave one.
[[nodiscard]] Failure refusal(const std::filesystem::path& path, int code = 0);

// The failure of a rename: where the file system cannot do it in one step that overwrites nothing,
// that is a refusal.
[[nodiscard]] Failure renameFailure(int code, const std::filesystem::path& path);

// `failure` told of `path`.
[[nodiscard]] Failure at(Failure failure, const std::filesystem::path& path);

}  // namespace morvane::folder
