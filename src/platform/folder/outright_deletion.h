#pragma once

#include <filesystem>
#include <optional>

#include "platform/folder/removal_rules.h"

namespace morvane::folder {

// Deletes the item that was examined, a folder with all it holds, and goes on past what cannot be
// deleted. Enters no mounted volume, no protected folder, and follows no link; works without
// recursion and with a bounded number of open folders at any depth. Nothing when all of it is gone;
// otherwise the first failure, told of what stayed, with `path` for the item itself.
[[nodiscard]] std::optional<Failure> deleteOutright(const RemovalRules& rules, const Place& place,
                                                    const ItemFacts& item,
                                                    const std::filesystem::path& path);

}  // namespace morvane::folder
