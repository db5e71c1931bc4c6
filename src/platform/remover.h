#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "model/cleanup.h"
#include "model/history.h"
#include "platform/failure.h"

namespace morvane {

// What is to go: the item, and the folder in which it was seen, where that is known.
struct RemovalTarget {
    std::filesystem::path path;
    FolderIdentity folder = {};
};

// What came of a removal: what went to the Trash, keyed by the path that was asked for, and the
// first failure. Items after a failed one were tried all the same.
struct RemovalReport {
    MovedItems trashed;
    std::optional<Failure> error;
};

// The one road by which anything leaves the disk, and the one back. Works on exactly the items it
// is handed: a link is itself what goes, nothing below it is followed. Refuses, with
// Failure::Kind::refused and nothing touched, an item whose folder is not the one it was seen in,
// that holds or is a mounted volume, that is "/", the home folder or a folder above it, or that the
// file system cannot move in one step that overwrites nothing. From the main thread or the pool.
class Remover {
public:
    Remover() = default;
    Remover(const Remover&) = delete;
    Remover& operator=(const Remover&) = delete;
    virtual ~Remover() = default;

    // Moves each target to the Trash under a free name; what lies inside another target goes along
    // with it and is not reported by itself, or goes by itself where that one cannot go.
    virtual RemovalReport recycle(const std::vector<RemovalTarget>& targets) = 0;

    // Deletes each target outright, folders with all they hold. Of a folder that cannot go whole,
    // what can be deleted goes.
    virtual RemovalReport removeOutright(const std::vector<RemovalTarget>& targets) = 0;

    // Moves `from` to `to`, whose parent folder is made with its intermediate folders. Fails, with
    // both left as they are, when anything at all stands at `to`.
    virtual std::optional<Failure> putBack(const std::filesystem::path& from,
                                           const std::filesystem::path& to) = 0;
};

}  // namespace morvane
