#include "platform/folder/tool_environment.h"

#include <unistd.h>

#include "model/path_text.h"

namespace morvane::folder {

namespace {

constexpr std::string_view pathName = "PATH=";
constexpr std::string_view diskName = "MORVANE_DISK=";

std::string folderOnThisMachine(const DiskRoot& root, const std::filesystem::path& folder) {
    const Result<Place> place = root.locateTarget(folder);
    const std::string canonical =
        place.ok() ? place->canonicalPath() : standardised(folder).native();
    return root.onThisMachine(canonical).native();
}

}  // namespace

std::vector<std::string> ownEnvironment() {
    std::vector<std::string> entries;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        entries.emplace_back(*entry);
    }
    return entries;
}

std::vector<std::string> toolEnvironment(const std::vector<std::string>& own, const DiskRoot& root,
                                         const std::filesystem::path& disk,
                                         const std::filesystem::path& executable) {
    std::vector<std::string> entries;
    std::string oldPath = "/usr/bin:/bin";
    for (const std::string& entry : own) {
        if (entry.starts_with(pathName)) {
            oldPath = entry.substr(pathName.size());
        } else if (!entry.starts_with(diskName)) {
            entries.push_back(entry);
        }
    }
    std::string path(pathName);
    for (const std::filesystem::path& folder :
         {executable.parent_path(), std::filesystem::path("/usr/local/bin"),
          std::filesystem::path("/opt/homebrew/bin")}) {
        path += folderOnThisMachine(root, folder) + ":";
    }
    entries.push_back(path + oldPath);
    entries.push_back(std::string(diskName) + disk.native());
    return entries;
}

}  // namespace morvane::folder
