#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/folder/disk_file_system.h"

namespace morvane::folder {

// A disk in a temporary folder, gone with this object however deep it is. It lies in memory where
// the machine offers that, unless it is asked to lie on a real disk. Paths are the disk's own.
class FolderDisk {
public:
    enum class Where : std::uint8_t { memory, disk };

    explicit FolderDisk(Where where = Where::memory, int extraThreads = 3);
    ~FolderDisk();
    FolderDisk(const FolderDisk&) = delete;
    FolderDisk& operator=(const FolderDisk&) = delete;

    // Making the disk; missing folders above are made.
    void addFolder(const std::filesystem::path& path) const;
    // With `bytes` allocated, a multiple of 4,096.
    void addFile(const std::filesystem::path& path, std::int64_t bytes,
                 std::optional<Instant> modified = {}) const;
    void addContents(const std::filesystem::path& path, std::string_view contents) const;
    void addLink(const std::filesystem::path& path, const std::filesystem::path& target) const;
    void addPipe(const std::filesystem::path& path) const;

    // Where a path lies on this machine.
    [[nodiscard]] std::filesystem::path place(const std::filesystem::path& path) const {
        return root_.native() + path.native();
    }
    void setHost(Host host) { answers_.replace(std::move(host)); }
    [[nodiscard]] const DiskFileSystem& files() const { return *files_; }
    [[nodiscard]] std::int64_t size(const std::filesystem::path& path) const {
        return files_->treeSize(path, false, StopToken()).bytes;
    }

private:
    std::filesystem::path root_;
    HostAnswers answers_{Host{}};
    std::optional<DiskRoot> disk_;
    std::unique_ptr<DiskFileSystem> files_;
};

// Empties an open folder and takes all of it away, however deep.
void removeAllBelow(int folder);

}  // namespace morvane::folder
