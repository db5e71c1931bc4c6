#include "ui/dialogs/folder_listing.h"

#include <algorithm>

#include "model/letters.h"

namespace morvane {

std::optional<std::vector<ListedFolder>> foldersIn(const Platform& platform,
                                                   const std::filesystem::path& folder) {
    const auto entries = platform.files.list(folder, Hidden::skipped);
    if (!entries) return std::nullopt;
    std::vector<ListedFolder> folders;
    for (const ListedEntry& entry : *entries) {
        if (entry.attributes.kind != EntryKind::folder || entry.attributes.isPackage) continue;
        folders.push_back({entry.path, platform.files.displayName(entry.path)});
    }
    std::sort(folders.begin(), folders.end(), [&](const auto& left, const auto& right) {
        const int order = compareNames(left.label, right.label, platform.region);
        return order != 0 ? order < 0 : left.path < right.path;
    });
    return folders;
}

}  // namespace morvane
