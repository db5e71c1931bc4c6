#include "scanners/dev_item.h"

#include <utility>

namespace morvane::CleanupScanner {

CleanupItem devItem(const ScanContext& scan, std::string id, std::string name,
                    const std::filesystem::path& url, const Measure& found, Safety safety,
                    std::string lastUsed) {
    return {.id = std::move(id),
            .name = std::move(name),
            .bytes = found.bytes,
            .safety = safety,
            .location = shortened(scan, url),
            .explanation = {},
            .lastUsed = std::move(lastUsed),
            .revealURL = url,
            .action = TrashAction{{{url, found.bytes, found.folder}}}};
}

std::string usedWords(const ScanContext& scan, const Measure& found) {
    return usedWords(found.newest, scan.now, scan.platform.region);
}

}  // namespace morvane::CleanupScanner
