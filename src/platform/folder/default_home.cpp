#include "platform/folder/default_home.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string>

#include "model/path_text.h"

namespace morvane::folder {

namespace {

std::vector<std::string> namesIn(const DiskRoot& root, const std::filesystem::path& folder) {
    Result<Descriptor> opened = root.openTarget(folder, O_RDONLY | O_DIRECTORY);
    if (!opened.ok()) return {};
    const auto close = [](DIR* listing) { ::closedir(listing); };
    const std::unique_ptr<DIR, decltype(close)> listing(::fdopendir(opened->get()), close);
    if (listing == nullptr) return {};
    std::ignore = opened->release();
    std::vector<std::string> names;
    // One thread alone reads this listing, which is all that readdir asks for.
    // NOLINTNEXTLINE(concurrency-mt-unsafe)
    while (const dirent* entry = ::readdir(listing.get())) names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

std::filesystem::path defaultHome(const DiskRoot& root,
                                  const std::vector<std::filesystem::path>& hidden) {
    for (const std::string& name : namesIn(root, "/Users")) {
        if (name.starts_with('.') || name == "Shared") continue;
        std::filesystem::path path = "/Users/" + name;
        const bool isHidden = std::any_of(hidden.begin(), hidden.end(), [&](const auto& other) {
            return standardised(other) == path;
        });
        if (!isHidden && root.openTarget(path, O_PATH | O_DIRECTORY).ok()) return path;
    }
    return {};
}

}  // namespace morvane::folder
