#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace morvane::fakes {

// One item of a disk in memory, with what lies in it.
struct FakeNode {
    std::string name;
    FakeNode* parent = nullptr;  // of the root: itself
    std::uint64_t inode = 0;
    Attributes attributes;
    std::string contents;
    std::filesystem::path target;
    std::optional<std::string> displayName;
    bool refusesReading = false;
    bool isBroken = false;
    std::vector<std::unique_ptr<FakeNode>> children;

    [[nodiscard]] FakeNode* child(const std::string& wanted) const {
        for (const auto& each : children) {
            if (each->name == wanted) return each.get();
        }
        return nullptr;
    }
    [[nodiscard]] FolderIdentity identity() const { return {1, inode}; }
    [[nodiscard]] bool isFolder() const { return attributes.kind == EntryKind::folder; }
    // What the file system says of it now: its folder may have become another one by a move.
    [[nodiscard]] Attributes currentAttributes() const {
        Attributes current = attributes;
        current.folder = parent->identity();
        return current;
    }
};

}  // namespace morvane::fakes
