#pragma once

#include <filesystem>
#include <memory>

#include "platform/folder/host_limits.h"
#include "platform/folder/item_facts.h"
#include "platform/folder/protected_folders.h"

namespace morvane::folder {

// What one call of a removal works with and obeys: the disk, the system calls, and which items may
// go. Made anew for each call, so that it stands on what is there now.
class RemovalRules {
public:
    static Result<RemovalRules> read(RemovalCalls& calls, const DiskRoot& disk, const Host& host);

    // The item that the clean path `path` names, when it may go; an item that is not there, that is
    // protected, that holds or is a mounted volume, or that is immovable is a failure.
    [[nodiscard]] Result<ItemFacts> examine(const Place& place,
                                            const std::filesystem::path& path) const;

    [[nodiscard]] RemovalCalls& calls() const { return *calls_; }
    [[nodiscard]] const DiskRoot& disk() const { return *disk_; }
    [[nodiscard]] const ProtectedFolders& protectedFolders() const { return protected_; }
    [[nodiscard]] const HostLimits& limits() const { return limits_; }

private:
    RemovalRules(RemovalCalls& calls, const DiskRoot& disk, ProtectedFolders folders,
                 HostLimits limits)
        : calls_(&calls),
          disk_(&disk),
          protected_(std::move(folders)),
          limits_(std::move(limits)) {}

    RemovalCalls* calls_;
    const DiskRoot* disk_;
    ProtectedFolders protected_;
    HostLimits limits_;
};

// The path by which an item is worked on: `path` standardised. A path that is not absolute is
// refused, and so is one whose ".." the disk reads otherwise than the text, since it is not certain
// what was meant.
[[nodiscard]] Result<std::filesystem::path> cleanPath(const DiskRoot& disk,
                                                      const std::filesystem::path& path);

}  // namespace morvane::folder
