#include "platform/file_system.h"

namespace morvane {

Result<std::vector<std::string>> FileSystem::names(const std::filesystem::path& path) const {
    const Result<std::vector<ListedEntry>> listed = list(path, Hidden::included);
    if (!listed.ok()) return listed.failure();
    std::vector<std::string> names;
    names.reserve(listed->size());
    for (const ListedEntry& entry : *listed) names.push_back(entry.path.filename().native());
    return names;
}

}  // namespace morvane
