#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <variant>

#include "model/apps.h"
#include "model/cleanup.h"
#include "model/instant.h"
#include "model/vocabulary.h"

namespace morvane {

// One large or old file, or a document bundle. `since` is the date its age is counted from.
// The path of `url` is its identity.
struct LargeFile {
    std::filesystem::path url;
    std::int64_t bytes = 0;
    FileKind kind = FileKind::other;
    std::optional<Instant> lastUsed;
    Instant since = {};
    FolderIdentity folder = {};

    bool operator==(const LargeFile&) const = default;
};

// Age at `now` in whole months of 2,592,000 seconds, cut towards zero.
[[nodiscard]] std::int64_t ageInMonths(const LargeFile& file, Instant now);

struct FilesRemoved {
    std::int64_t count = 0;
    double mb = 0;
    bool operator==(const FilesRemoved&) const = default;
};
using TrashResult = std::variant<FilesRemoved, RemovalFailed>;

}  // namespace morvane
