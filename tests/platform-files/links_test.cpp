#include <gtest/gtest.h>

#include "folder_disk.h"

namespace morvane::folder {

namespace {

TEST(Links, NeitherAnAbsoluteOneNorTwoDotsLeadOutOfTheDisk) {
    const FolderDisk disk;
    const FolderDisk outside;
    outside.addFile("/secret/file", 4'096);
    disk.addFile("/Users/sam/file", 8'192);
    disk.addLink("/absolute", outside.place("/secret"));
    disk.addLink("/up", "../../../../../../../../../../../.." + outside.place("/secret").native());
    disk.addLink("/Users/top", "../../../..");
    for (const auto* path : {"/absolute", "/absolute/file", "/up", "/up/file"}) {
        EXPECT_FALSE(disk.files().exists(path)) << path;
        EXPECT_EQ(disk.size(path), 0) << path;
    }
    EXPECT_EQ(disk.size("/Users/top"), 8'192);
    EXPECT_TRUE(disk.files().exists("/../../Users/sam/file"));
}

TEST(Links, AnAbsoluteOneIsResolvedInsideTheDisk) {
    const FolderDisk disk;
    disk.addContents("/private/etc/hosts", "local");
    disk.addLink("/etc", "/private/etc");
    EXPECT_EQ(*disk.files().readFile("/etc/hosts", 100), "local");
    EXPECT_EQ(disk.files().list("/etc", Hidden::included)->front().path, "/etc/hosts");
}

// A chain of links "/1" → "/2" → … → "/count" → "/end".
void addChain(const FolderDisk& disk, int count) {
    disk.addFile("/end/file", 4'096);
    for (int number = 1; number <= count; ++number) {
        const std::string next = number == count ? "end" : std::to_string(number + 1);
        disk.addLink("/" + std::to_string(number), next);
    }
}

TEST(Links, ThirtyTwoAreFollowed) {
    const FolderDisk disk;
    addChain(disk, 32);
    EXPECT_TRUE(disk.files().exists("/1"));
    EXPECT_EQ(disk.files().presence("/1/file"), Presence::there);
    EXPECT_EQ(disk.size("/1"), 4'096);
}

TEST(Links, AfterThirtyTwoAPathIsNotThere) {
    const FolderDisk disk;
    addChain(disk, 33);
    EXPECT_FALSE(disk.files().exists("/1"));
    EXPECT_TRUE(disk.files().exists("/2"));
    EXPECT_EQ(disk.files().presence("/1"), Presence::there);
    EXPECT_EQ(disk.files().presence("/1/file"), Presence::gone);
    EXPECT_EQ(disk.files().attributes("/1/file").failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(disk.size("/1"), 0);
}

TEST(Links, ALoopIsNotThereAndIsNotWalked) {
    const FolderDisk disk;
    disk.addLink("/a", "b");
    disk.addLink("/b", "a");
    disk.addLink("/folder/self", ".");
    disk.addFile("/folder/file", 4'096);
    EXPECT_FALSE(disk.files().exists("/a"));
    EXPECT_EQ(disk.size("/a"), 0);
    EXPECT_EQ(disk.size("/folder"), 4'096);
    EXPECT_EQ(disk.size("/folder/self/self/self"), 4'096);
}

}  // namespace

}  // namespace morvane::folder
