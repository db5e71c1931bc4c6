#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/failure.h"
#include "platform/folder/disk_root.h"

namespace morvane::folder {

// The bytes of the regular file at `path` of at most `limit` bytes, links followed inside the disk.
// Nothing for one that is not there, is longer, is no regular file or cannot be read; never waits
// on a pipe.
[[nodiscard]] std::optional<std::string> readWholeFile(const DiskRoot& disk,
                                                       const std::filesystem::path& path,
                                                       std::size_t limit);

// Puts a file with `bytes` at `path` in one step, in place of a file or a link there, and makes the
// folders on the way. After a power cut the old or the new is there. On failure the old one stays
// and nothing else is left behind. A file that an earlier process left half written goes. Only one
// caller at a time for one path.
[[nodiscard]] std::optional<Failure> replaceWholeFile(const DiskRoot& disk,
                                                      const std::filesystem::path& path,
                                                      const std::string& bytes);

}  // namespace morvane::folder
