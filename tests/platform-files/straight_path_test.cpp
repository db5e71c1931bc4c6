#include "platform/folder/straight_path.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "folder_disk.h"

namespace morvane::folder {
namespace {

Descriptor topOf(const FolderDisk& disk) {
    return Descriptor(::open(disk.place("/").c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

Descriptor opened(const FolderDisk& disk, const char* path) {
    return openStraight(topOf(disk).get(), path, O_PATH | O_DIRECTORY);
}

TEST(StraightPath, NamesTheFolderAndTheItem) {
    EXPECT_EQ(straightPath("/Users/sam/a.txt"), (StraightPath{"/Users/sam", "a.txt"}));
    EXPECT_EQ(straightPath("/Users"), (StraightPath{"/", "Users"}));
    EXPECT_EQ(straightPath("Users/sam"), (StraightPath{"/Users", "sam"}));
}

TEST(StraightPath, IsWholeAgain) {
    EXPECT_EQ(straightPath("//Users/./sam")->whole(), "/Users/sam");
    EXPECT_EQ(straightPath("Users")->whole(), "/Users");
}

TEST(StraightPath, LeavesOutDotsAndDoubleSlashes) {
    EXPECT_EQ(straightPath("//Users/./sam//a.txt"), (StraightPath{"/Users/sam", "a.txt"}));
    EXPECT_EQ(straightPath("/Users/sam/."), (StraightPath{"/Users", "sam"}));
}

TEST(StraightPath, TakesNamesThatMerelyBeginWithDots) {
    EXPECT_EQ(straightPath("/Users/..sam/..."), (StraightPath{"/Users/..sam", "..."}));
}

TEST(StraightPath, LeavesToTheDiskWhatOnlyItCanTell) {
    EXPECT_EQ(straightPath("/Users/../etc"), std::nullopt);
    EXPECT_EQ(straightPath("/Users/.."), std::nullopt);
    EXPECT_EQ(straightPath("/Users/"), std::nullopt);
    EXPECT_EQ(straightPath("/"), std::nullopt);
    EXPECT_EQ(straightPath(""), std::nullopt);
    EXPECT_EQ(straightPath("."), std::nullopt);
    EXPECT_EQ(straightPath(std::string_view("/Users\0/sam", 11)), std::nullopt);
}

TEST(OpenStraight, OpensTheFolderItself) {
    const FolderDisk disk;
    disk.addFolder("/Users/sam");
    struct stat named{};
    struct stat found{};
    const Descriptor folder = opened(disk, "/Users/sam");
    ASSERT_TRUE(folder);
    ASSERT_EQ(::fstat(folder.get(), &found), 0);
    ASSERT_EQ(::stat(disk.place("/Users/sam").c_str(), &named), 0);
    EXPECT_EQ(found.st_ino, named.st_ino);
    EXPECT_TRUE(opened(disk, "/"));
}

TEST(OpenStraight, OpensNothingBehindALink) {
    const FolderDisk disk;
    disk.addFolder("/Users/sam");
    disk.addLink("/people", "Users");
    disk.addLink("/Users/me", "sam");
    EXPECT_FALSE(opened(disk, "/people/sam"));
    EXPECT_FALSE(opened(disk, "/Users/me"));
    EXPECT_FALSE(opened(disk, "/people"));
}

TEST(OpenStraight, OpensNothingThatIsNoFolder) {
    const FolderDisk disk;
    disk.addFile("/Users/file", 4'096);
    disk.addPipe("/Users/pipe");
    EXPECT_FALSE(opened(disk, "/Users/file"));
    EXPECT_FALSE(opened(disk, "/Users/pipe"));
    EXPECT_FALSE(opened(disk, "/Users/none"));
}

}  // namespace
}  // namespace morvane::folder
