#pragma once

#include "platform/file_system.h"
#include "platform/folder/disk_root.h"
#include "platform/folder/host.h"
#include "platform/folder/host_marks.h"
#include "platform/folder/walk_crew.h"

namespace morvane::folder {

// The files of a disk that lies in a folder, as they really are; what the real file system cannot
// know (flags, packages, aliases, mounts, names shown, what is refused) host.json adds. Any thread;
// `disk` and `host` outlive this.
class DiskFileSystem : public FileSystem {
public:
    DiskFileSystem(const DiskRoot& disk, const HostAnswers& host,
                   int extraThreads = WalkThreads::forThisMachine())
        : disk_(disk), host_(host), threads_(extraThreads) {}

    [[nodiscard]] Result<Attributes> attributes(const std::filesystem::path& path) const override;
    [[nodiscard]] Presence presence(const std::filesystem::path& path) const override;
    [[nodiscard]] bool exists(const std::filesystem::path& path) const override;
    [[nodiscard]] bool isExecutableFile(const std::filesystem::path& path) const override;
    // Really opens a file or a folder; anything else is never opened.
    [[nodiscard]] Probe probe(const std::filesystem::path& path) const override;
    [[nodiscard]] std::string displayName(const std::filesystem::path& path) const override;
    [[nodiscard]] Result<std::vector<ListedEntry>> list(const std::filesystem::path& path,
                                                        Hidden hidden) const override;
    [[nodiscard]] Result<std::vector<std::string>> names(
        const std::filesystem::path& path) const override;
    [[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path,
                                               std::int64_t limit) const override;
    bool walk(const std::filesystem::path& path, const WalkOptions& options, FolderVisit& root,
              const StopToken& token) const override;
    [[nodiscard]] TreeSize treeSize(const std::filesystem::path& path, bool withDates,
                                    const StopToken& token) const override;

private:
    struct OpenFolder {
        Descriptor folder;
        std::string canonicalPath;
    };
    // Where `path` leads, links at its end followed; refused (EPERM) where the host says so of the
    // path itself or of what it leads to.
    [[nodiscard]] Result<Place> locateReadable(const std::filesystem::path& path,
                                               const HostMarks& marks) const;
    [[nodiscard]] Result<OpenFolder> openFolder(const std::filesystem::path& path,
                                                const HostMarks& marks) const;

    const DiskRoot& disk_;
    const HostAnswers& host_;
    mutable WalkThreads threads_;
};

}  // namespace morvane::folder
