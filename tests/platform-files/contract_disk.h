#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string_view>

#include "platform/file_system.h"

namespace morvane {

// A disk to be asked through the interface, whatever stands behind it. Missing folders above are
// made.
class ContractDisk {
public:
    ContractDisk() = default;
    ContractDisk(const ContractDisk&) = delete;
    ContractDisk& operator=(const ContractDisk&) = delete;
    virtual ~ContractDisk() = default;

    virtual void addFolder(const std::filesystem::path& path) = 0;
    virtual void addFile(const std::filesystem::path& path, std::int64_t bytes,
                         std::optional<Instant> modified = {}) = 0;
    virtual void addContents(const std::filesystem::path& path, std::string_view contents) = 0;
    virtual void addLink(const std::filesystem::path& path,
                         const std::filesystem::path& target) = 0;
    virtual void addPipe(const std::filesystem::path& path) = 0;
    virtual void setExecutable(const std::filesystem::path& path) = 0;
    virtual void refuseReading(const std::filesystem::path& path) = 0;
    [[nodiscard]] virtual const FileSystem& files() const = 0;
};

// What every FileSystem promises; instantiated with what makes a disk of each kind.
class FileSystemContract
    : public testing::TestWithParam<std::function<std::unique_ptr<ContractDisk>()>> {
protected:
    std::unique_ptr<ContractDisk> disk = GetParam()();
    const FileSystem& files = disk->files();

    [[nodiscard]] std::int64_t size(const std::filesystem::path& path) const {
        return files.treeSize(path, false, StopToken()).bytes;
    }
};

}  // namespace morvane
