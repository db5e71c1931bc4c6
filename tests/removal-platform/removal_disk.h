#pragma once

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/folder/disk_remover.h"
#include "recording_calls.h"
#include "support/tree_snapshot.h"

namespace morvane {

// For the messages of tests that fail.
inline void PrintTo(const Failure& failure, std::ostream* out) {
    *out << "kind " << static_cast<int>(failure.kind) << " code " << failure.code << " "
         << failure.path;
}

}  // namespace morvane

namespace morvane::folder {

// A disk in a temporary folder with the home "/Users/sam", beside which things stand that no
// removal may touch: "/Canary", "/Users/sam/Documents", and a folder next to the disk. Paths are in
// the disk's own terms.
class RemovalDisk {
public:
    RemovalDisk();
    ~RemovalDisk();
    RemovalDisk(const RemovalDisk&) = delete;
    RemovalDisk& operator=(const RemovalDisk&) = delete;

    [[nodiscard]] std::filesystem::path place(const std::string& path) const;
    void file(const std::string& path, const std::string& bytes = "bytes");
    void folder(const std::string& path);
    void link(const std::string& path, const std::string& target);
    void hardLink(const std::string& path, const std::string& existing);

    [[nodiscard]] bool stands(const std::string& path) const;  // the item itself
    [[nodiscard]] char kind(const std::string& path) const;    // as TreeItem has it
    [[nodiscard]] ino_t inode(const std::string& path) const;  // 0 where nothing stands
    [[nodiscard]] std::string bytes(const std::string& path) const;
    [[nodiscard]] std::vector<std::string> names(const std::string& folder) const;  // sorted
    [[nodiscard]] FolderIdentity identity(const std::string& folder) const;

    // The target `path` with its folder's identity, and remembers the item.
    RemovalTarget plan(const std::string& path);
    // Each remembered item is at its old place or in the Trash: never neither, never both.
    void expectOldPlaceOrTrash() const;
    // The same, or gone altogether, as deleting may leave it.
    void expectOldPlaceOrGone() const;
    void expectCanaryUntouched() const;

    Host host;
    RecordingCalls calls;
    // With `host` as it stands at the first call.
    DiskRemover& remover();
    [[nodiscard]] bool hasRemover() const { return remover_.has_value(); }
    [[nodiscard]] const DiskRoot& root() { return (void)remover(), *root_; }
    [[nodiscard]] const HostAnswers& answers() { return (void)remover(), *answers_; }

private:
    [[nodiscard]] int countInTrash(ino_t item) const;

    std::filesystem::path base_;
    std::map<std::string, ino_t> planned_;
    test::TreeSnapshot canary_;
    test::TreeSnapshot documents_;
    test::TreeSnapshot outside_;
    std::optional<DiskRoot> root_;
    std::optional<HostAnswers> answers_;
    std::optional<DiskRemover> remover_;
};

// A test on one such disk. Afterwards what had to stay is compared byte for byte, what was planned
// is looked for, and every descriptor has to be closed again.
class RemovalTest : public ::testing::Test {
protected:
    RemovalTest();
    ~RemovalTest() override;

    RemovalDisk disk;
    bool deletes = false;  // items may be gone altogether

private:
    std::size_t descriptors_;
};

[[nodiscard]] std::size_t openDescriptors();

}  // namespace morvane::folder
