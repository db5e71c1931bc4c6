#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/vocabulary.h"

namespace morvane {

// A node of the storage tree. Synthetic nodes have no `url`.
struct StorageNode {
    enum class Kind : std::uint8_t { folder, file, rest, system, systemData, pending };

    std::string name;
    std::optional<std::filesystem::path> url;
    Kind kind = Kind::folder;
    std::int64_t bytes = 0;
    std::vector<StorageNode> children;

    bool operator==(const StorageNode&) const = default;
};

// How full the startup disk is and what fills it. Bytes throughout.
struct DiskUsage {
    struct Slice {
        struct Kind {
            enum class Case : std::uint8_t { category, pending, purgeable };
            Case value = Case::category;
            DiskCategory category = DiskCategory::other;  // meaningful for Case::category alone
            bool operator==(const Kind&) const = default;
        };
        Kind kind;
        std::int64_t bytes = 0;
        bool operator==(const Slice&) const = default;
    };

    std::string volumeName = "Macintosh HD";
    std::int64_t totalBytes = 0;
    std::int64_t freeBytes = 0;
    std::int64_t purgeableBytes = 0;
    std::optional<std::int64_t> systemBytes;        // absent: not known; a known 0 is a value
    std::map<DiskCategory, std::int64_t> measured;  // finished categories alone
    std::set<DiskCategory> skipped;                 // not walked for want of Full Disk Access
    bool isComplete = false;

    bool operator==(const DiskUsage&) const = default;
};

// What the bar draws, in its fixed order; walked folders are shrunk in proportion where they add
// up to more than the disk can hold.
[[nodiscard]] std::vector<DiskUsage::Slice> slices(const DiskUsage& disk);

// "pending", "purgeable" or the category's raw value.
[[nodiscard]] std::string_view sliceIdentity(const DiskUsage::Slice& slice);

}  // namespace morvane
