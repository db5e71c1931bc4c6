#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "model/files.h"
#include "platform/platform.h"
#include "tasks/stop_token.h"

namespace morvane {

// What lies in the home folder, files too, but for hidden items and for "Library" and
// "Applications", which belong to the system. Empty when the home folder cannot be listed.
[[nodiscard]] std::vector<std::filesystem::path> largeFileRoots(const Platform& platform);

// The files and document bundles of 100,000,000 allocated bytes and over at or below `root`, in the
// order of their paths. Leaves out what lies inside one of `ignored`, hidden items, links, alias
// files, parts of programs and every package that is no document, and does not go into folders of
// build output. Unreadable folders are passed over. Once `token` says stop, what was found so far.
// Any thread; walks on several.
[[nodiscard]] std::vector<LargeFile> scanLargeFiles(
    const Platform& platform, const std::filesystem::path& root,
    const std::vector<std::filesystem::path>& ignored, Instant now, const StopToken& token);

// Those of at least `minMB` decimal megabytes and `minMonths` months of age, of `kind` where one is
// given, largest first; files of equal size keep their order.
[[nodiscard]] std::vector<LargeFile> filteredFiles(const std::vector<LargeFile>& files,
                                                   double minMB, std::int64_t minMonths,
                                                   std::optional<FileKind> kind, Instant now);

}  // namespace morvane
