#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/folder/descriptor.h"
#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;

class Outright : public RemovalTest {
protected:
    Outright() { deletes = true; }
};

TEST_F(Outright, DeletesFilesFoldersAndLinksAndNothingElse) {
    disk.file("/Users/sam/Library/kept");
    const test::TreeSnapshot before = test::takeSnapshot(disk.place("/Users"));
    disk.file("/Users/sam/Goes/a");
    disk.file("/Users/sam/Goes/folder/inner/b");
    disk.folder("/Users/sam/Goes/empty/emptier");
    disk.link("/Users/sam/Goes/folder/out", "/Canary");
    disk.link("/Users/sam/Goes/out", "../Documents");
    disk.link("/Users/sam/Goes/up", "..");
    disk.link("/Users/sam/Goes/dangling", "nowhere");
    ASSERT_EQ(::mkfifo(disk.place("/Users/sam/Goes/pipe").c_str(), 0600), 0);
    disk.file("/Users/sam/Goes/new\nline \xff");
    const RemovalReport report = disk.remover().removeOutright({disk.plan("/Users/sam/Goes")});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_TRUE(report.trashed.empty());
    test::TreeSnapshot after = test::takeSnapshot(disk.place("/Users"));
    after["/sam"].modified = before.at("/sam").modified;  // an entry came and went
    EXPECT_EQ(test::differences(before, after), "");
    EXPECT_FALSE(disk.stands("/Users/sam/.Trash"));
}

TEST_F(Outright, DeletesALinkAndNotWhatItLeadsTo) {
    disk.link("/Users/sam/a", "/Canary");
    disk.link("/Users/sam/b", "Documents/letter.txt");
    EXPECT_EQ(
        disk.remover().removeOutright({disk.plan("/Users/sam/a"), disk.plan("/Users/sam/b")}).error,
        std::nullopt);
    EXPECT_FALSE(disk.stands("/Users/sam/a"));
    EXPECT_FALSE(disk.stands("/Users/sam/b"));
}

TEST_F(Outright, DeletesOneNameOfAFileThatHasOthers) {
    disk.file("/Users/sam/kept/name", "shared");
    disk.hardLink("/Users/sam/goes/other name", "/Users/sam/kept/name");
    EXPECT_EQ(disk.remover().removeOutright({{"/Users/sam/goes"}}).error, std::nullopt);
    EXPECT_EQ(disk.bytes("/Users/sam/kept/name"), "shared");
}

TEST_F(Outright, GoesOnPastWhatVanished) {
    disk.file("/Users/sam/a");
    disk.file("/Users/sam/c");
    const RemovalReport report = disk.remover().removeOutright(
        {disk.plan("/Users/sam/a"), {"/Users/sam/b"}, disk.plan("/Users/sam/c")});
    EXPECT_EQ(report.error, (Failure{Failure::Kind::notFound, ENOENT, "/Users/sam/b"}));
    EXPECT_FALSE(disk.stands("/Users/sam/a"));
    EXPECT_FALSE(disk.stands("/Users/sam/c"));
}

// Ten thousand folders within one another, made as no path could name them.
void makeDeep(const std::filesystem::path& top, int levels) {
    Descriptor here(::open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(::mkdirat(here.get(), "d", 0700), 0);
        Descriptor next(::openat(here.get(), "d", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        ASSERT_TRUE(next);
        if (level % 100 == 0) {
            ASSERT_EQ(::symlinkat("/Canary", here.get(), "out"), 0);
            ASSERT_EQ(::mkdirat(here.get(), "side", 0700), 0);
        }
        here = std::move(next);
    }
}

TEST_F(Outright, DeletesTenThousandLevelsWithAFewDescriptors) {
    disk.folder("/Users/sam/deep");
    makeDeep(disk.place("/Users/sam/deep"), 10'000);
    std::size_t most = 0;
    const std::size_t before = openDescriptors();
    disk.calls.before = [&](const std::string& call, const std::string&) {
        if (call == "list" && disk.calls.count("list") % 500 == 0) {
            most = std::max(most, openDescriptors());
        }
    };
    EXPECT_EQ(disk.remover().removeOutright({disk.plan("/Users/sam/deep")}).error, std::nullopt);
    EXPECT_FALSE(disk.stands("/Users/sam/deep"));
    EXPECT_GT(most, before);
    EXPECT_LT(most, before + 40);
}

TEST_F(Outright, MovesTenThousandLevelsInOneStep) {
    disk.folder("/Users/sam/deep");
    makeDeep(disk.place("/Users/sam/deep"), 10'000);
    EXPECT_EQ(disk.remover().recycle({{"/Users/sam/deep"}}).error, std::nullopt);
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/deep/d/d/d"));
    EXPECT_EQ(disk.calls.count("rename"), 1);
}

TEST_F(Outright, StopsWhereTheWayUpLeadsToAnotherFolder) {
    disk.folder("/Users/sam/deep");
    makeDeep(disk.place("/Users/sam/deep"), 100);
    disk.folder("/Users/sam/elsewhere/d");
    disk.file("/Users/sam/elsewhere/kept");
    std::string fifty = "/Users/sam/deep";
    for (int level = 0; level < 50; ++level) fifty += "/d";
    bool isMoved = false;
    disk.calls.before = [&](const std::string& call, const std::string&) {
        // At the bottom, the tree is cut in the middle of what is no longer held open.
        if (call != "list" || disk.calls.count("list") != 200 || isMoved) return;
        isMoved = true;
        std::filesystem::rename(disk.place(fifty), disk.place("/Users/sam/elsewhere/moved"));
    };
    const RemovalReport report = disk.remover().removeOutright({{"/Users/sam/deep"}});
    ASSERT_TRUE(isMoved);
    ASSERT_TRUE(report.error);
    EXPECT_EQ(report.error->kind, Failure::Kind::refused);
    EXPECT_THAT(disk.names("/Users/sam/elsewhere"), ElementsAre("d", "kept", "moved"));
    EXPECT_TRUE(disk.stands("/Users/sam/deep/d"));
}

TEST_F(Outright, ReportsAFolderThatSomethingIsAddedTo) {
    disk.file("/Users/sam/busy/old");
    disk.calls.before = [&](const std::string& call, const std::string& item) {
        if (call == "removeFolder" && item == "busy") disk.file("/Users/sam/busy/new", "new");
    };
    EXPECT_EQ(disk.remover().removeOutright({{"/Users/sam/busy"}}).error,
              (Failure{Failure::Kind::failed, ENOTEMPTY, "/Users/sam/busy"}));
    EXPECT_EQ(disk.bytes("/Users/sam/busy/new"), "new");
    EXPECT_THAT(disk.names("/Users/sam/busy"), ElementsAre("new"));
}

TEST_F(Outright, KeepsTheFirstFailureAndDeletesTheRest) {
    disk.file("/Users/sam/a/1");
    disk.file("/Users/sam/a/sub/2");
    disk.file("/Users/sam/b");
    disk.calls.failOne("unlink", 1, EIO);
    disk.calls.failOne("unlink", 2, EROFS);
    const RemovalReport report =
        disk.remover().removeOutright({disk.plan("/Users/sam/a"), disk.plan("/Users/sam/b")});
    EXPECT_EQ(report.error, (Failure{Failure::Kind::failed, EIO, "/Users/sam/a/1"}));
    EXPECT_TRUE(disk.stands("/Users/sam/a/1"));
    EXPECT_TRUE(disk.stands("/Users/sam/a/sub/2"));
    EXPECT_FALSE(disk.stands("/Users/sam/b"));
}

TEST_F(Outright, DoesNotTakeAFailedListingForAnEmptyFolder) {
    disk.file("/Users/sam/a/1");
    disk.file("/Users/sam/a/sub/2");
    disk.calls.failOne("list", 1, EIO);
    EXPECT_EQ(disk.remover().removeOutright({disk.plan("/Users/sam/a")}).error,
              (Failure{Failure::Kind::failed, EIO, "/Users/sam/a"}));
    EXPECT_TRUE(disk.stands("/Users/sam/a/1"));
    EXPECT_TRUE(disk.stands("/Users/sam/a/sub/2"));
}

TEST_F(Outright, LeavesAFolderThatMayNotBeOpenedUnlessItIsEmpty) {
    disk.file("/Users/sam/a/1");
    disk.calls.failAll("open", EACCES);
    // What opens the Trash and the target alike.
    EXPECT_EQ(disk.remover().removeOutright({disk.plan("/Users/sam/a")}).error,
              (Failure{Failure::Kind::notAllowed, EACCES, "/Users/sam/a"}));
    EXPECT_TRUE(disk.stands("/Users/sam/a/1"));
    disk.folder("/Users/sam/empty");
    EXPECT_EQ(disk.remover().removeOutright({disk.plan("/Users/sam/empty")}).error, std::nullopt);
    EXPECT_FALSE(disk.stands("/Users/sam/empty"));
}

TEST_F(Outright, RefusesATargetThatBecomesAnotherFolderAfterTheLook) {
    disk.file("/Users/sam/a/1");
    disk.file("/Users/sam/other/kept");
    disk.calls.before = [&](const std::string& call, const std::string& item) {
        if (call != "open" || item != "a" || !disk.stands("/Users/sam/other")) return;
        std::filesystem::rename(disk.place("/Users/sam/a"), disk.place("/Users/sam/old"));
        std::filesystem::rename(disk.place("/Users/sam/other"), disk.place("/Users/sam/a"));
    };
    EXPECT_EQ(disk.remover().removeOutright({{"/Users/sam/a"}}).error,
              (Failure{Failure::Kind::refused, 0, "/Users/sam/a"}));
    EXPECT_TRUE(disk.stands("/Users/sam/a/kept"));
    EXPECT_TRUE(disk.stands("/Users/sam/old/1"));
}

TEST_F(Outright, DoesNotFollowAFolderThatBecomesALinkAfterTheLook) {
    for (const bool inside : {false, true}) {
        const std::string path = inside ? "/Users/sam/top/a" : "/Users/sam/a";
        disk.file(path + "/1");
        disk.calls.before = [&](const std::string& call, const std::string& item) {
            if (call != "open" || item != "a" || disk.kind(path) != 'd') return;
            std::filesystem::rename(disk.place(path), disk.place("/Users/sam/was here"));
            disk.link(path, "/Canary");
        };
        const RemovalReport report =
            disk.remover().removeOutright({{inside ? "/Users/sam/top" : "/Users/sam/a"}});
        EXPECT_EQ(report.error.has_value(), !inside);
        EXPECT_EQ(disk.kind(path), inside ? '?' : 'l');
        EXPECT_TRUE(disk.stands("/Users/sam/was here/1"));
        std::filesystem::remove_all(disk.place("/Users/sam/was here"));
    }
}

TEST_F(Outright, NeverEntersTheHomeOrTheTrashHoweverTheyGotThere) {
    disk.file("/Users/sam/.Trash/old");
    disk.folder("/Users/other/top/inside");
    disk.calls.before = [&](const std::string& call, const std::string& item) {
        if (call != "open" || item != "inside" || !disk.stands("/Users/sam")) return;
        std::filesystem::remove(disk.place("/Users/other/top/inside"));
        std::filesystem::rename(disk.place("/Users/sam"), disk.place("/Users/other/top/inside"));
    };
    const RemovalReport report = disk.remover().removeOutright({{"/Users/other/top"}});
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, 0, "/Users/other/top/inside"}));
    std::filesystem::rename(disk.place("/Users/other/top/inside"), disk.place("/Users/sam"));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/old"));
}

}  // namespace

}  // namespace morvane::folder
