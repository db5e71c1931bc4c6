#include "services/full_disk_access.h"

#include <gtest/gtest.h>

#include "support/fake_system.h"

namespace morvane {
namespace {

using enum PermissionStatus;

class FullDiskAccess : public testing::Test {
protected:
    fakes::FakeSystem system;
    const std::filesystem::path ofTheSystem = "/Library/Application Support/com.apple.TCC/TCC.db";
    const std::filesystem::path ofTheUser =
        "/Users/sam/Library/Application Support/com.apple.TCC/TCC.db";
    const std::filesystem::path bookmarks = "/Users/sam/Library/Safari/Bookmarks.plist";
    const std::filesystem::path mail = "/Users/sam/Library/Mail";

    [[nodiscard]] PermissionStatus probe() const { return probeFullDiskAccess(system.platform); }
    [[nodiscard]] std::vector<std::string> asked() const { return system.files.history(); }
};

TEST_F(FullDiskAccess, IsDeniedWhereNoneOfThePathsExist) {
    EXPECT_EQ(probe(), denied);
    EXPECT_EQ(asked(), (std::vector<std::string>{
                           "probe /Library/Application Support/com.apple.TCC/TCC.db",
                           "probe /Users/sam/Library/Application Support/com.apple.TCC/TCC.db",
                           "probe /Users/sam/Library/Safari/Bookmarks.plist",
                           "probe /Users/sam/Library/Mail"}));
}

TEST_F(FullDiskAccess, IsGrantedByTheFirstPathThatOpens) {
    system.files.addFile(ofTheUser, 1);
    EXPECT_EQ(probe(), granted);
    EXPECT_EQ(asked().size(), 2U);
}

TEST_F(FullDiskAccess, IsDeniedByTheFirstRefusalWhateverFollows) {
    system.files.addFile(ofTheSystem, 1);
    system.files.refuseReading(ofTheSystem);
    system.files.addFile(bookmarks, 1);
    EXPECT_EQ(probe(), denied);
    EXPECT_EQ(asked().size(), 1U);
}

TEST_F(FullDiskAccess, IsGrantedByAPathBeforeARefusedOne) {
    system.files.addFile(ofTheUser, 1);
    system.files.addFile(bookmarks, 1);
    system.files.refuseReading(bookmarks);
    EXPECT_EQ(probe(), granted);
}

TEST_F(FullDiskAccess, IsGrantedByAFolderThatOpens) {
    system.files.addFolder(mail);
    EXPECT_EQ(probe(), granted);
}

TEST_F(FullDiskAccess, PassesOverWhatFailsInAnotherWay) {
    system.files.addLink(bookmarks, "/nowhere");
    EXPECT_EQ(probe(), denied);
    system.files.addFolder(mail);
    EXPECT_EQ(probe(), granted);
}

TEST(SystemSettings, HaveTheirPanes) {
    EXPECT_STREQ(fullDiskAccessPane,
                 "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles");
    EXPECT_STREQ(notificationsPane,
                 "x-apple.systempreferences:com.apple.Notifications-Settings.extension");
}

}  // namespace
}  // namespace morvane
