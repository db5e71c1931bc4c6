#pragma once

#include <vector>

#include "model/apps.h"
#include "model/cleanup.h"
#include "model/files.h"
#include "platform/file_system.h"
#include "platform/remover.h"

namespace morvane {

enum class Disposal : std::uint8_t { trash, outright };

// The one removal: all targets to the Trash in one call, or each deleted outright. Whoever calls it
// decides what went by looking afterwards (isGone).
[[nodiscard]] RemovalReport discard(Remover& remover, Disposal disposal,
                                    const std::vector<RemovalTarget>& targets);

// Whether nothing stands at the path any more, asked of the item itself. Could not look: not gone.
[[nodiscard]] bool isGone(const FileSystem& files, const std::filesystem::path& path);

[[nodiscard]] RemovalTarget targetOf(const CleanupPart& part);
[[nodiscard]] RemovalTarget targetOf(const AppPart& part);
[[nodiscard]] RemovalTarget targetOf(const LargeFile& file);

}  // namespace morvane
