#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "model/disk.h"
#include "platform/platform.h"
#include "tasks/stop_token.h"

// The walk that makes of a disk a tree small enough to draw. The tree is thinned while it is built:
// a folder keeps the children that matter, everything else is folded into its size, so that memory
// is bound by the tree that is kept and not by the files on the disk.
namespace morvane::StorageScanner {

// What a row of a listing comes to.
enum class Entry : std::uint8_t {
    skipped,  // a link, or another volume: the walk neither leaves the disk nor loops
    folder,   // descended into
    bundle,   // a package, measured whole and shown as one file
    item      // anything else, counted by its own allocated size
};
[[nodiscard]] Entry classify(const WalkedEntry& entry);

// Where a scan of the disk starts, as far as the disk has these folders, in their order.
[[nodiscard]] std::vector<std::filesystem::path> roots(const Platform& platform);

// The folders, as path texts, that the system guards with a question or a refusal. A scan without
// Full Disk Access must not go in.
[[nodiscard]] std::set<std::string> protectedFolders(const std::filesystem::path& home);

// The tree below `url`, leaving out what `skipped` names by exact path text. Unreadable folders
// count as empty, and so does a `url` that cannot be listed; a link at the end of `url` is
// followed. Hidden items count, links and mounted volumes do not. Once `token` says stop, what was
// gathered so far. Any thread; walks on several.
[[nodiscard]] StorageNode scanRoot(const Platform& platform, const std::filesystem::path& url,
                                   const std::set<std::string>& skipped, const StopToken& token);

// A folder with those of its children that matter: the 24 largest at most, each with a hundredth
// of the folder's bytes at least, and what is left over as "Other items" behind them. A folder of
// under 10,000,000 bytes keeps none. Children of equal size keep their order.
[[nodiscard]] StorageNode makeFolderNode(std::string name, std::filesystem::path url,
                                         std::vector<StorageNode> children);

}  // namespace morvane::StorageScanner
