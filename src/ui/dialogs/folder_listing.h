#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace morvane {

// A folder to look into or to choose.
struct ListedFolder {
    std::filesystem::path path;
    std::string label;  // as the user sees its name

    bool operator==(const ListedFolder&) const = default;
};

// The folders that lie in a folder, by their names: no hidden ones, no packages, no links. Nothing
// where it could not be read. Any thread.
[[nodiscard]] std::optional<std::vector<ListedFolder>> foldersIn(
    const Platform& platform, const std::filesystem::path& folder);

}  // namespace morvane
