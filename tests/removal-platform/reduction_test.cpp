#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;

using Reduction = RemovalTest;

TEST_F(Reduction, MovesAPathThatIsNamedTwiceOnce) {
    disk.file("/Users/sam/a");
    const RemovalTarget target = disk.plan("/Users/sam/a");
    const RemovalReport report = disk.remover().recycle({target, target, {"/Users//sam/./a/"}});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/a", "/Users/sam/.Trash/a"}}));
    EXPECT_EQ(disk.calls.count("rename"), 1);
}

TEST_F(Reduction, LetsWhatLiesInsideAnotherGoAlongWithTheOutermost) {
    disk.file("/Users/sam/x/y/z");
    disk.file("/Users/sam/xy");
    const RemovalReport report = disk.remover().recycle({{"/Users/sam/x/y/z"},
                                                         disk.plan("/Users/sam/x"),
                                                         {"/Users/sam/x/y"},
                                                         disk.plan("/Users/sam/xy")});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/x", "/Users/sam/.Trash/x"},
                                          {"/Users/sam/xy", "/Users/sam/.Trash/xy"}}));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/x/y/z"));
}

// A folder that cannot go, named with some of what it holds, at several depths.
class RefusedFolder : public RemovalTest {
protected:
    std::vector<RemovalTarget> targets;

    void SetUp() override {
        RemovalTest::SetUp();
        disk.file("/Users/sam/x/y/z/deep");
        disk.file("/Users/sam/x/y/kept");
        disk.file("/Users/sam/x/named");
        disk.file("/Users/sam/x/kept");
        targets = {disk.plan("/Users/sam/x/y/z/deep"), disk.plan("/Users/sam/x/y/z"),
                   disk.plan("/Users/sam/x"), disk.plan("/Users/sam/x/named"),
                   disk.plan("/Users/sam/x/named")};
    }
};

TEST_F(RefusedFolder, LeavesWhatWasNamedInsideItToGoByItself) {
    disk.host.immovable = {"/Users/sam/x"};
    const RemovalReport report = disk.remover().recycle(targets);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::notAllowed, EPERM, "/Users/sam/x"}));
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/x/y/z", "/Users/sam/.Trash/z"},
                                          {"/Users/sam/x/named", "/Users/sam/.Trash/named"}}));
    EXPECT_THAT(disk.names("/Users/sam/x"), ElementsAre("kept", "y"));
    EXPECT_THAT(disk.names("/Users/sam/x/y"), ElementsAre("kept"));
}

TEST_F(RefusedFolder, LeavesItAlsoWhereItHoldsAMount) {
    disk.host.mounts = {"/Users/sam/x/y/z/volume"};
    const RemovalReport report = disk.remover().recycle(targets);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, EBUSY, "/Users/sam/x/y/z"}));
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/x/y/z/deep", "/Users/sam/.Trash/deep"},
                                          {"/Users/sam/x/named", "/Users/sam/.Trash/named"}}));
    EXPECT_THAT(disk.names("/Users/sam/x"), ElementsAre("kept", "y"));
}

TEST_F(RefusedFolder, LeavesItAlsoWhereItIsDeleted) {
    deletes = true;
    disk.host.immovable = {"/Users/sam/x"};
    const RemovalReport report = disk.remover().removeOutright(targets);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::notAllowed, EPERM, "/Users/sam/x"}));
    EXPECT_THAT(disk.names("/Users/sam/x"), ElementsAre("kept", "y"));
    EXPECT_THAT(disk.names("/Users/sam/x/y"), ElementsAre("kept"));
}

TEST_F(RefusedFolder, TellsNoFailureOfWhatHasGoneWithTheRestOfIt) {
    deletes = true;
    disk.host.immovable = {"/Users/sam/x/kept"};
    const RemovalReport report = disk.remover().removeOutright(targets);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::notAllowed, EPERM, "/Users/sam/x/kept"}));
    EXPECT_THAT(disk.names("/Users/sam/x"), ElementsAre("kept"));
}

TEST_F(Reduction, FindsItsWayWhereALinkLeadsAroundToTheFolderThatHoldsIt) {
    disk.file("/Users/sam/x/sub/kept");
    disk.link("/Users/sam/x/sub/way", "/Users/sam/x");
    const RemovalReport report =
        disk.remover().recycle({disk.plan("/Users/sam/x/sub/way"), {"/Users/sam/x/sub/way/sub"}});
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/x/sub/way", "/Users/sam/.Trash/way"}}));
    EXPECT_TRUE(disk.stands("/Users/sam/x/sub/kept"));
}

TEST_F(Reduction, KnowsOnePlaceThatTwoPathsLeadTo) {
    disk.file("/Users/sam/Away/Caches/a/inner");
    disk.link("/Users/sam/Library", "Away");
    const RemovalReport report = disk.remover().recycle({{"/Users/sam/Library/Caches/a/inner"},
                                                         disk.plan("/Users/sam/Away/Caches/a"),
                                                         {"/Users/sam/Library/Caches/a"}});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/Away/Caches/a", "/Users/sam/.Trash/a"}}));
}

TEST_F(Reduction, ReportsThePathExactlyAsItWasAskedFor) {
    disk.file("/Users/sam/a");
    disk.folder("/Users/sam/b");
    (void)disk.plan("/Users/sam/a");
    const RemovalReport report = disk.remover().recycle({{"/Users/sam/b/..//a/"}});
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/b/..//a/", "/Users/sam/.Trash/a"}}));
}

TEST_F(Reduction, ALinkGoesAndWhatItLeadsToStays) {
    disk.file("/Users/sam/Away/kept");
    disk.link("/Users/sam/link", "Away");
    (void)disk.plan("/Users/sam/Away/kept");
    const RemovalReport report =
        disk.remover().recycle({disk.plan("/Users/sam/link"), {"/Users/sam/link/kept"}});
    EXPECT_EQ(report.trashed, (MovedItems{{"/Users/sam/link", "/Users/sam/.Trash/link"}}));
    EXPECT_TRUE(disk.stands("/Users/sam/Away/kept"));
    EXPECT_EQ(disk.kind("/Users/sam/.Trash/link"), 'l');
}

TEST_F(Reduction, ASlashBehindALinkDoesNotReachThroughIt) {
    disk.link("/Users/sam/link", "/Canary/full");
    (void)disk.plan("/Users/sam/link");
    const RemovalReport report = disk.remover().recycle({{"/Users/sam/link/"}});
    EXPECT_EQ(report.trashed.size(), 1U);
    EXPECT_EQ(disk.kind("/Users/sam/.Trash/link"), 'l');
}

TEST_F(Reduction, RefusesDotsThatTheDiskReadsOtherwiseThanTheText) {
    disk.folder("/Users/sam/Away/deep");
    disk.file("/Users/sam/Away/target");
    disk.file("/Users/sam/target");
    disk.link("/Users/sam/link", "Away/deep");
    (void)disk.plan("/Users/sam/Away/target");
    (void)disk.plan("/Users/sam/target");
    const RemovalReport report = disk.remover().recycle({{"/Users/sam/link/../target"}});
    EXPECT_TRUE(report.trashed.empty());
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, 0, "/Users/sam/link/../target"}));
}

TEST_F(Reduction, RefusesPathsThatAreNotAbsolute) {
    disk.file("/Users/sam/a");
    (void)disk.plan("/Users/sam/a");
    for (const char* path : {"", "Users/sam/a", "a", "."}) {
        EXPECT_EQ(disk.remover().recycle({{path}}).error,
                  (Failure{Failure::Kind::refused, 0, path}));
    }
    EXPECT_TRUE(disk.stands("/Users/sam/a"));
}

TEST_F(Reduction, GoesOnPastWhatVanishedAndTellsTheFirstFailure) {
    disk.file("/Users/sam/a");
    disk.file("/Users/sam/d");
    const RemovalReport report = disk.remover().recycle({disk.plan("/Users/sam/a"),
                                                         {"/Users/sam/b"},
                                                         {"/Users/sam/missing/c"},
                                                         disk.plan("/Users/sam/d")});
    EXPECT_EQ(report.trashed.size(), 2U);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::notFound, ENOENT, "/Users/sam/b"}));
    EXPECT_THAT(disk.names("/Users/sam/.Trash"), ElementsAre("a", "d"));
}

TEST_F(Reduction, TellsTheFailureOfTheFirstTargetAlsoWhenALaterOneWasRefusedFirst) {
    disk.file("/Users/sam/a");
    const RemovalTarget target = disk.plan("/Users/sam/a");
    disk.calls.failAll("rename", EIO);
    const RemovalReport report = disk.remover().recycle({target, {"/Users/sam/missing"}});
    EXPECT_EQ(report.error, (Failure{Failure::Kind::failed, EIO, "/Users/sam/a"}));
}

TEST_F(Reduction, RefusesAnItemWhoseFolderHasBecomeAnother) {
    disk.file("/Users/sam/Library/Caches/a", "seen");
    disk.file("/Users/sam/Library/Caches/b", "not known where");
    const RemovalTarget target = disk.plan("/Users/sam/Library/Caches/a");
    std::filesystem::rename(disk.place("/Users/sam/Library/Caches"),
                            disk.place("/Users/sam/Library/Old"));
    disk.file("/Users/sam/Library/Caches/a", "another");
    for (const bool outright : {false, true}) {
        const RemovalReport report =
            outright ? disk.remover().removeOutright({target}) : disk.remover().recycle({target});
        EXPECT_TRUE(report.trashed.empty());
        EXPECT_EQ(report.error,
                  (Failure{Failure::Kind::refused, 0, "/Users/sam/Library/Caches/a"}));
        EXPECT_EQ(disk.bytes("/Users/sam/Library/Caches/a"), "another");
        EXPECT_EQ(disk.bytes("/Users/sam/Library/Old/a"), "seen");
    }
    std::filesystem::remove_all(disk.place("/Users/sam/Library/Caches"));
    std::filesystem::rename(disk.place("/Users/sam/Library/Old"),
                            disk.place("/Users/sam/Library/Caches"));
    EXPECT_EQ(disk.remover().recycle({target}).trashed.size(), 1U);
}

TEST_F(Reduction, RefusesAFolderThatBecomesAnotherDuringTheCall) {
    disk.file("/Users/sam/Library/one/a");
    disk.file("/Users/sam/Library/two/b", "first");
    const RemovalTarget a = disk.plan("/Users/sam/Library/one/a");
    disk.calls.before = [&](const std::string& call, const std::string&) {
        if (call != "rename" || disk.calls.count("rename") != 0) return;
        std::filesystem::rename(disk.place("/Users/sam/Library/two"),
                                disk.place("/Users/sam/Library/moved"));
        disk.link("/Users/sam/Library/two", "/Canary/full");
    };
    const RemovalReport report = disk.remover().recycle(
        {a, {"/Users/sam/Library/two/b"}, {"/Users/sam/Library/two/deeper"}});
    EXPECT_EQ(report.trashed.size(), 1U);
    EXPECT_EQ(disk.bytes("/Users/sam/Library/moved/b"), "first");
}

}  // namespace

}  // namespace morvane::folder
