#include <gtest/gtest.h>

#include "collecting_visit.h"
#include "folder_disk.h"

namespace morvane::folder {

namespace {

// "/Users/sam" is reached through "/home" too.
void makeDisk(const FolderDisk& disk) {
    disk.addFile("/Users/sam/flagged/inside", 4'096);
    disk.addFile("/Users/sam/plain", 4'096);
    disk.addLink("/home", "/Users");
}

const ListedEntry* find(const std::vector<ListedEntry>& listed, const std::string& path) {
    for (const ListedEntry& entry : listed) {
        if (entry.path == path) return &entry;
    }
    return nullptr;
}

TEST(HostLists, FlagsAreSeenHoweverThePathIsSpelt) {
    FolderDisk disk;
    makeDisk(disk);
    disk.setHost({.mounts = {"/home/sam/flagged"},
                  .hidden = {"/home/sam/flagged", "/Users/sam/plain"},
                  .packages = {"/Users/sam/flagged/"},
                  .aliases = {"/home/../home/sam/plain"}});

    for (const std::string home : {"/Users/sam", "/home/sam"}) {
        const auto folder = disk.files().attributes(home + "/flagged");
        const auto file = disk.files().attributes(home + "/plain");
        ASSERT_TRUE(folder.ok() && file.ok());
        EXPECT_TRUE(folder->isHidden && folder->isPackage && folder->isVolume);
        EXPECT_FALSE(folder->isAlias);
        EXPECT_TRUE(file->isHidden && file->isAlias);
        EXPECT_FALSE(file->isPackage || file->isVolume);

        const auto listed = disk.files().list(home, Hidden::included);
        const ListedEntry* entry = find(*listed, home + "/flagged");
        ASSERT_NE(entry, nullptr);
        EXPECT_TRUE(entry->attributes.isHidden && entry->attributes.isPackage &&
                    entry->attributes.isVolume);
        EXPECT_TRUE(disk.files().list(home, Hidden::skipped)->empty());

        Collected collected;
        ASSERT_TRUE(collect(disk.files(), home, {}, collected));
        const WalkedEntry& walked = collected.at(home + "/flagged");
        EXPECT_TRUE(walked.isHidden && walked.isPackage && walked.isVolume);
        EXPECT_TRUE(collected.at(home + "/plain").isAlias);
        EXPECT_FALSE(collected.at(home + "/flagged/inside").isHidden);
        EXPECT_EQ(collected.entered, 1);  // with the same flags, or the visit leaves it out
    }
}

TEST(HostLists, WalksFromFurtherUpSeeThemToo) {
    FolderDisk disk;
    makeDisk(disk);
    disk.setHost({.unreadable = {"/home/sam/flagged"}, .aliases = {"/Users/sam/plain"}});
    Collected collected;
    ASSERT_TRUE(collect(disk.files(), "/", {}, collected));
    EXPECT_TRUE(collected.at("/Users/sam/plain").isAlias);
    EXPECT_TRUE(collected.has("/Users/sam/flagged"));
    EXPECT_FALSE(collected.has("/Users/sam/flagged/inside"));
    EXPECT_EQ(disk.size("/"), 4'096);
}

TEST(HostLists, WhatIsUnreadableIsRefusedByEveryWay) {
    FolderDisk disk;
    makeDisk(disk);
    disk.addLink("/link", "/Users/sam/flagged");
    disk.addLink("/linked", "/Users/sam");
    disk.setHost({.unreadable = {"/Users/sam/flagged", "/linked"}});
    for (const auto* path : {"/Users/sam/flagged", "/home/sam/flagged", "/link", "/linked"}) {
        EXPECT_EQ(disk.files().list(path, Hidden::included).failure().kind,
                  Failure::Kind::notAllowed)
            << path;
        EXPECT_EQ(disk.files().probe(path), Probe::refused) << path;
        EXPECT_EQ(disk.size(path), 0) << path;
    }
    EXPECT_EQ(disk.files().readFile("/link/inside", 10'000).failure().kind,
              Failure::Kind::notAllowed);
    EXPECT_TRUE(disk.files().list("/Users/sam", Hidden::included).ok());
}

TEST(HostLists, ANameThatBeginsTheSameIsAnother) {
    FolderDisk disk;
    disk.addFile("/Foo/a", 4'096);
    disk.addFile("/Foobar/a", 4'096);
    disk.setHost({.unreadable = {"/Foo"}});
    EXPECT_EQ(disk.size("/Foobar"), 4'096);
    EXPECT_EQ(disk.size("/"), 4'096);
}

TEST(HostLists, TheWholeDiskMayBeUnreadable) {
    FolderDisk disk;
    makeDisk(disk);
    disk.setHost({.unreadable = {"/"}});
    EXPECT_EQ(disk.size("/"), 0);
    EXPECT_EQ(disk.size("/Users/sam"), 0);
    EXPECT_EQ(disk.files().presence("/Users/sam/plain"), Presence::there);
}

TEST(HostLists, DisplayNamesAreByPath) {
    FolderDisk disk;
    makeDisk(disk);
    disk.setHost({.displayNames = {{"/Users/sam/flagged", "Shown"}, {"/none/there", "Ghost"}}});
    EXPECT_EQ(disk.files().displayName("/Users/sam/flagged"), "Shown");
    EXPECT_EQ(disk.files().displayName("/home/sam/flagged"), "Shown");
    EXPECT_EQ(disk.files().displayName("/Users/sam/plain"), "plain");
    EXPECT_EQ(disk.files().displayName("/Users/sam/plain/"), "plain");
    EXPECT_EQ(disk.files().displayName("/none/there"), "Ghost");
    EXPECT_EQ(disk.files().displayName("/"), "/");
}

}  // namespace

}  // namespace morvane::folder
