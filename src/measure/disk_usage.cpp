#include "measure/disk_usage.h"

#include <algorithm>
#include <array>
#include <string>

namespace morvane {

namespace {

constexpr std::array appFolders{"/Applications", "Applications"};
constexpr std::array mediaFolders{"Pictures", "Movies"};
constexpr std::array documentFolders{"Documents", "Desktop", "Downloads"};
constexpr std::array developerFolders{"Library/Developer",
                                      "Library/Android",
                                      ".android",
                                      ".gradle",
                                      ".m2",
                                      ".npm",
                                      ".pnpm-store",
                                      ".bun",
                                      ".yarn",
                                      ".cargo",
                                      ".rustup",
                                      ".cocoapods",
                                      ".pub-cache",
                                      "go"};

template <class Folders>
std::vector<std::filesystem::path> below(const std::filesystem::path& home,
                                         const Folders& folders) {
    // An absolute path replaces the home folder in front of it.
    std::vector<std::filesystem::path> paths;
    paths.reserve(folders.size());
    for (const char* folder : folders) paths.push_back(home / folder);
    return paths;
}

}  // namespace

std::optional<DiskUsage> quickMeasure(const Volume& volume) {
    const std::optional<VolumeFigures> figures = volume.figures();
    if (!figures || !figures->total || !figures->available) return std::nullopt;
    DiskUsage disk;
    if (figures->name) disk.volumeName = *figures->name;
    disk.totalBytes = *figures->total;
    disk.freeBytes = *figures->available;
    const std::int64_t important =
        figures->availableForImportantUsage.value_or(*figures->available);
    disk.purgeableBytes = std::max<std::int64_t>(important - disk.freeBytes, 0);
    return disk;
}

DiskUsage withVolumeFigures(DiskUsage disk, const DiskUsage& figures) {
    disk.volumeName = figures.volumeName;
    disk.totalBytes = figures.totalBytes;
    disk.freeBytes = figures.freeBytes;
    disk.purgeableBytes = figures.purgeableBytes;
    return disk;
}

std::vector<std::filesystem::path> categoryFolders(DiskCategory category,
                                                   const std::filesystem::path& home) {
    switch (category) {
        case DiskCategory::apps:
            return below(home, appFolders);
        case DiskCategory::media:
            return below(home, mediaFolders);
        case DiskCategory::documents:
            return below(home, documentFolders);
        case DiskCategory::developer:
            return below(home, developerFolders);
        case DiskCategory::system:
        case DiskCategory::other:
            break;
    }
    return {};
}

}  // namespace morvane
