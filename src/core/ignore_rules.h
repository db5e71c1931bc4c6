#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/apps.h"
#include "model/cleanup.h"

namespace morvane {

// Whether `url` is one of `folders` (texts of standardised paths) or lies under one. Plain
// comparison of texts, case counts; a folder Foo does not cover its sibling Foobar.
[[nodiscard]] bool isIgnored(const std::filesystem::path& url,
                             const std::vector<std::string>& folders);

// The item without its ignored parts; nothing when none is left. An item that a command removes
// has no paths and is never ignored.
[[nodiscard]] std::optional<CleanupItem> keepingIgnored(CleanupItem item,
                                                        const std::vector<std::string>& folders);
[[nodiscard]] std::vector<CleanupItem> keepingIgnored(std::vector<CleanupItem> items,
                                                      const std::vector<std::string>& folders);
// A section left without items goes, one that came without any too.
[[nodiscard]] std::vector<DevSection> keepingIgnored(std::vector<DevSection> sections,
                                                     const std::vector<std::string>& folders);
[[nodiscard]] std::optional<InstalledApp> keepingIgnored(InstalledApp app,
                                                         const std::vector<std::string>& folders);
[[nodiscard]] std::vector<InstalledApp> withoutIgnored(std::vector<InstalledApp> apps,
                                                       const std::vector<std::string>& folders);

// The ids of the items that are not marked for review.
[[nodiscard]] std::set<std::string> safeIDs(const std::vector<CleanupItem>& items);

}  // namespace morvane
