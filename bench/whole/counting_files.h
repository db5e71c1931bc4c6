#pragma once

#include <atomic>
#include <cstdint>

#include "platform/file_system.h"

namespace morvane::bench {

// A file system that counts the entries which listings and walks hand over. Walks for a size alone
// go through the common walk here, so that they are counted too.
class CountingFiles : public FileSystem {
public:
    explicit CountingFiles(const FileSystem& files) : files_(files) {}

    [[nodiscard]] std::int64_t entries() const { return entries_.load(); }

    [[nodiscard]] Result<Attributes> attributes(const std::filesystem::path& path) const override;
    [[nodiscard]] Presence presence(const std::filesystem::path& path) const override;
    [[nodiscard]] bool exists(const std::filesystem::path& path) const override;
    [[nodiscard]] bool isExecutableFile(const std::filesystem::path& path) const override;
    [[nodiscard]] Probe probe(const std::filesystem::path& path) const override;
    [[nodiscard]] std::string displayName(const std::filesystem::path& path) const override;
    [[nodiscard]] Result<std::vector<ListedEntry>> list(const std::filesystem::path& path,
                                                        Hidden hidden) const override;
    [[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path,
                                               std::int64_t limit) const override;
    bool walk(const std::filesystem::path& path, const WalkOptions& options, FolderVisit& root,
              const StopToken& token) const override;
    [[nodiscard]] TreeSize treeSize(const std::filesystem::path& path, bool withDates,
                                    const StopToken& token) const override;

private:
    const FileSystem& files_;
    mutable std::atomic<std::int64_t> entries_{0};
};

}  // namespace morvane::bench
