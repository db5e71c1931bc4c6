#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "bulk.h"
#include "plan.h"

namespace morvane::sample {

/// Whether a disk may be made in a folder.
enum class Place { free, taken };

/// `free` when nothing at all lies at `folder` or an empty folder does; whatever else is there, a
/// file, a dangling link, a folder that cannot be looked into, is `taken`.
[[nodiscard]] Place lookAt(const std::string& folder);

/// Bytes free for a user on the file system that `folder` lies or would lie on; 0 when unknown.
[[nodiscard]] std::int64_t freeBytes(const std::string& folder);

/// Writes the fitted plan into `folder`/root, the benchmark tree beside it and `hostJson` into
/// `folder`/host.json. Every mode and modification time is set. One line about what went wrong,
/// or nothing; what had been written by then stays.
[[nodiscard]] std::optional<std::string> writeDisk(const std::string& folder, const Plan& plan,
                                                   const BulkTree& bulk,
                                                   const std::string& hostJson);

}  // namespace morvane::sample
