#include "contract_disk.h"
#include "support/fake_files.h"

namespace morvane {

namespace {

class FakeContractDisk : public ContractDisk {
public:
    void addFolder(const std::filesystem::path& path) override { disk_.addFolder(path); }
    void addFile(const std::filesystem::path& path, std::int64_t bytes,
                 std::optional<Instant> modified) override {
        disk_.addFile(path, bytes, modified);
    }
    void addContents(const std::filesystem::path& path, std::string_view contents) override {
        disk_.addContents(path, std::string(contents));
    }
    void addLink(const std::filesystem::path& path, const std::filesystem::path& target) override {
        disk_.addLink(path, target);
    }
    void addPipe(const std::filesystem::path& path) override { disk_.addOther(path); }
    void setExecutable(const std::filesystem::path& path) override { disk_.setExecutable(path); }
    void refuseReading(const std::filesystem::path& path) override { disk_.refuseReading(path); }
    [[nodiscard]] const FileSystem& files() const override { return disk_; }

private:
    fakes::FakeFiles disk_;
};

INSTANTIATE_TEST_SUITE_P(Fake, FileSystemContract,
                         testing::Values([]() -> std::unique_ptr<ContractDisk> {
                             return std::make_unique<FakeContractDisk>();
                         }));

}  // namespace

}  // namespace morvane
