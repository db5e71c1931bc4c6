#include <sys/stat.h>

#include "contract_disk.h"
#include "folder_disk.h"

namespace morvane {

namespace {

class FolderContractDisk : public ContractDisk {
public:
    void addFolder(const std::filesystem::path& path) override { disk_.addFolder(path); }
    void addFile(const std::filesystem::path& path, std::int64_t bytes,
                 std::optional<Instant> modified) override {
        disk_.addFile(path, bytes, modified);
    }
    void addContents(const std::filesystem::path& path, std::string_view contents) override {
        disk_.addContents(path, contents);
    }
    void addLink(const std::filesystem::path& path, const std::filesystem::path& target) override {
        disk_.addLink(path, target);
    }
    void addPipe(const std::filesystem::path& path) override { disk_.addPipe(path); }
    void setExecutable(const std::filesystem::path& path) override {
        ::chmod(disk_.place(path).c_str(), 0755);
    }
    void refuseReading(const std::filesystem::path& path) override {
        host_.unreadable.push_back(path);
        disk_.setHost(host_);
    }
    [[nodiscard]] const FileSystem& files() const override { return disk_.files(); }

private:
    folder::Host host_;
    folder::FolderDisk disk_;
};

INSTANTIATE_TEST_SUITE_P(Folder, FileSystemContract,
                         testing::Values([]() -> std::unique_ptr<ContractDisk> {
                             return std::make_unique<FolderContractDisk>();
                         }));

}  // namespace

}  // namespace morvane
