#pragma once

#include <atomic>
#include <cstdint>

#include "platform/forwarding_file_system.h"

namespace morvane::bench {

// A file system that counts the entries which listings and walks hand over. Walks for a size alone
// go through the common walk here, so that they are counted too.
class CountingFiles : public ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] std::int64_t entries() const { return entries_.load(); }

    [[nodiscard]] Result<std::vector<ListedEntry>> list(const std::filesystem::path& path,
                                                        Hidden hidden) const override;
    [[nodiscard]] Result<std::vector<std::string>> names(
        const std::filesystem::path& path) const override;
    bool walk(const std::filesystem::path& path, const WalkOptions& options, FolderVisit& root,
              const StopToken& token) const override;
    [[nodiscard]] TreeSize treeSize(const std::filesystem::path& path, bool withDates,
                                    const StopToken& token) const override;

private:
    mutable std::atomic<std::int64_t> entries_{0};
};

}  // namespace morvane::bench
