#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mounted_elsewhere.h"
#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;

class Forbidden : public RemovalTest {
protected:
    Forbidden() {
        disk.file("/Users/sam/.Trash/old");
        disk.file("/Users/other/their");
    }

    void expectRefused(const std::string& path) {
        const test::TreeSnapshot before = test::takeSnapshot(disk.place("/"));
        for (const bool outright : {false, true}) {
            const RemovalReport report = outright ? disk.remover().removeOutright({{path}})
                                                  : disk.remover().recycle({{path}});
            EXPECT_TRUE(report.trashed.empty()) << path;
            EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, 0, path}));
            EXPECT_EQ(test::differences(before, test::takeSnapshot(disk.place("/"))), "") << path;
        }
        const std::optional<Failure> failure =
            disk.remover().putBack(path, "/Users/other/new/name");
        EXPECT_EQ(failure, (Failure{Failure::Kind::refused, 0, path}));
        EXPECT_EQ(test::differences(before, test::takeSnapshot(disk.place("/"))), "") << path;
        EXPECT_EQ(disk.calls.count("rename"), 0);
        EXPECT_EQ(disk.calls.count("unlink"), 0);
        EXPECT_EQ(disk.calls.count("removeFolder"), 0);
    }
};

TEST_F(Forbidden, TheTopTheHomeAndWhatLiesAboveIt) {
    for (const char* path :
         {"/", "//", "/.", "/..", "/Users", "/Users/", "/Users/sam", "/Users/sam/",
          "/Users/../Users/sam", "/Users/other/../sam", "/Users/sam/Documents/.."}) {
        expectRefused(path);
    }
}

TEST_F(Forbidden, TheTrash) {
    expectRefused("/Users/sam/.Trash");
    expectRefused("/Users/sam/Documents/../.Trash/");
}

TEST_F(Forbidden, TheSameFoldersUnderOtherPaths) {
    disk.link("/Volumes/Disk", "/");
    disk.link("/Users/alias", "sam");
    expectRefused("/Volumes/Disk/Users/sam");
    expectRefused("/Volumes/Disk/Users");
    expectRefused("/Users/alias/.Trash");
    expectRefused("/Users/alias/Documents/..");
}

TEST_F(Forbidden, TheHomeAndWhatLiesAboveItWhereALinkLeadsThere) {
    disk.folder("/Data/Homes/kim");
    disk.link("/Users/kim", "/Data/Homes/kim");
    disk.host.home = "/Users/kim";
    for (const char* path : {"/Users", "/Users/kim", "/Data", "/Data/Homes", "/Data/Homes/kim",
                             "/Data/Homes/kim/.Trash"}) {
        expectRefused(path);
    }
}

TEST_F(Forbidden, ALinkToTheHomeIsNotTheHome) {
    disk.link("/Users/sam/Desktop/home", "/Users/sam");
    disk.link("/Users/sam/Desktop/trash", "/Users/sam/.Trash");
    const RemovalReport report = disk.remover().recycle(
        {disk.plan("/Users/sam/Desktop/home"), disk.plan("/Users/sam/Desktop/trash")});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_THAT(disk.names("/Users/sam/.Trash"), ElementsAre("home", "old", "trash"));
    EXPECT_TRUE(disk.stands("/Users/sam/Documents/letter.txt"));
}

TEST_F(Forbidden, WhatLiesInAForbiddenTargetAndWasNamedStillGoes) {
    disk.file("/Users/sam/a");
    const RemovalReport report = disk.remover().recycle(
        {{"/"}, {"/Users/sam"}, disk.plan("/Users/sam/a"), disk.plan("/Users/other")});
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, 0, "/"}));
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/a", "/Users/sam/.Trash/a"},
                                          {"/Users/other", "/Users/sam/.Trash/other"}}));
}

TEST_F(Forbidden, TheSameFoldersBoundToAnotherPlace) {
    disk.file("/Users/sam/Library/named", "goes");
    disk.folder("/Volumes/Bound");
    whereMountingIsAllowed([&] {
        mountFolder(disk.place("/Users"), disk.place("/Volumes/Bound"));
        expectRefused("/Volumes/Bound/sam");
        expectRefused("/Volumes/Bound/sam/.Trash");
        const RemovalReport report = disk.remover().removeOutright(
            {{"/Volumes/Bound/sam"}, {"/Volumes/Bound/sam/Library/named"}});
        EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, 0, "/Volumes/Bound/sam"}));
        EXPECT_FALSE(disk.stands("/Users/sam/Library/named"));
    });
}

TEST_F(Forbidden, EverythingWhileThoseFoldersCannotBeLookedAt) {
    disk.file("/Users/sam/a");
    (void)disk.plan("/Users/sam/a");
    disk.calls.failAll("look", EIO);
    EXPECT_EQ(disk.remover().recycle({{"/Users/sam/a"}}).error->code, EIO);
    EXPECT_EQ(disk.remover().removeOutright({{"/Users/sam/a"}}).error->code, EIO);
    EXPECT_EQ(disk.remover().putBack("/Users/sam/a", "/Users/sam/b")->code, EIO);
    EXPECT_TRUE(disk.stands("/Users/sam/a"));
}

}  // namespace

}  // namespace morvane::folder
