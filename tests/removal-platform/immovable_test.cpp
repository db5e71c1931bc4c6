#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;

using Immovable = RemovalTest;

TEST_F(Immovable, AmongOthersStaysAlone) {
    disk.file("/Users/sam/Library/a");
    disk.file("/Users/sam/Library/b");
    disk.file("/Users/sam/Library/c");
    disk.host.immovable = {"/Users/sam/Library/b"};
    const RemovalReport report = disk.remover().recycle({disk.plan("/Users/sam/Library/a"),
                                                         disk.plan("/Users/sam/Library/b"),
                                                         disk.plan("/Users/sam/Library/c")});
    EXPECT_EQ(report.error, (Failure{Failure::Kind::notAllowed, EPERM, "/Users/sam/Library/b"}));
    EXPECT_EQ(report.trashed.size(), 2U);
    EXPECT_THAT(disk.names("/Users/sam/Library"), ElementsAre("b"));
}

TEST_F(Immovable, GoesAlongWithAFolderThatIsMoved) {
    disk.file("/Users/sam/Library/b");
    disk.host.immovable = {"/Users/sam/Library/b"};
    EXPECT_EQ(disk.remover().recycle({disk.plan("/Users/sam/Library")}).error, std::nullopt);
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/Library/b"));
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/Library", "/Users/sam/Library"),
              std::nullopt);
}

TEST_F(Immovable, IsNotPutBack) {
    disk.file("/Users/sam/.Trash/a");
    disk.host.immovable = {"/Users/sam/.Trash/a"};
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/a"),
              (Failure{Failure::Kind::notAllowed, EPERM, "/Users/sam/.Trash/a"}));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/a"));
}

TEST_F(Immovable, StaysOfAFolderThatIsDeletedAndTheRestGoes) {
    deletes = true;
    disk.file("/Users/sam/Library/1/goes");
    disk.file("/Users/sam/Library/1/file");
    disk.file("/Users/sam/Library/2/folder/inside");
    disk.file("/Users/sam/Library/2/goes");
    disk.file("/Users/sam/Library/3/goes");
    disk.link("/Users/sam/way", "Library");
    disk.host.immovable = {"/Users/sam/Library/1/file", "/Users/sam/way/2/folder"};
    const RemovalReport report = disk.remover().removeOutright({{"/Users/sam/Library"}});
    ASSERT_TRUE(report.error);
    EXPECT_EQ(report.error->kind, Failure::Kind::notAllowed);
    EXPECT_EQ(report.error->code, EPERM);
    EXPECT_THAT(disk.names("/Users/sam/Library"), ElementsAre("1", "2"));
    EXPECT_THAT(disk.names("/Users/sam/Library/1"), ElementsAre("file"));
    EXPECT_THAT(disk.names("/Users/sam/Library/2"), ElementsAre("folder"));
    EXPECT_THAT(disk.names("/Users/sam/Library/2/folder"), ElementsAre("inside"));
}

TEST_F(Immovable, StaysWithAllItHoldsWhenItIsToBeDeletedItself) {
    deletes = true;
    disk.file("/Users/sam/Library/a");
    disk.host.immovable = {"/Users/sam/Library"};
    EXPECT_EQ(disk.remover().removeOutright({disk.plan("/Users/sam/Library")}).error,
              (Failure{Failure::Kind::notAllowed, EPERM, "/Users/sam/Library"}));
    EXPECT_TRUE(disk.stands("/Users/sam/Library/a"));
}

TEST_F(Immovable, OfALinkIsTheLinkItself) {
    disk.file("/Users/sam/Library/a");
    disk.link("/Users/sam/link", "Library/a");
    disk.host.immovable = {"/Users/sam/link"};
    EXPECT_EQ(disk.remover().recycle({disk.plan("/Users/sam/link")}).error->code, EPERM);
    EXPECT_EQ(disk.remover().recycle({disk.plan("/Users/sam/Library/a")}).error, std::nullopt);
}

TEST_F(Immovable, FoldersThatRefuseToBeListedAreMovedButNotDeleted) {
    deletes = true;
    disk.file("/Users/sam/Library/shut/a");
    disk.file("/Users/sam/Library/open/a");
    disk.host.unreadable = {"/Users/sam/Library/shut"};
    EXPECT_EQ(disk.remover().removeOutright({{"/Users/sam/Library"}}).error,
              (Failure{Failure::Kind::notAllowed, EPERM, "/Users/sam/Library/shut"}));
    EXPECT_THAT(disk.names("/Users/sam/Library"), ElementsAre("shut"));
    EXPECT_TRUE(disk.stands("/Users/sam/Library/shut/a"));
    EXPECT_EQ(disk.remover().recycle({{"/Users/sam/Library/shut"}}).error, std::nullopt);
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/shut/a"));
}

}  // namespace

}  // namespace morvane::folder
