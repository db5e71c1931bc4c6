#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mounted_elsewhere.h"
#include "platform/folder/mount_table.h"
#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;
using ::testing::Optional;

TEST(MountPoints, StandInTheFifthFieldWithTheirEscapesUndone) {
    EXPECT_THAT(
        mountPointsIn("22 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda rw\n"
                      "23 22 0:21 / /proc rw - proc proc rw\n"
                      "40 22 0:35 /a\\040b /mnt/with\\040blank\\011tab\\134slash rw - x y z\n"),
        Optional(ElementsAre("/", "/proc", "/mnt/with blank\ttab\\slash")));
    EXPECT_THAT(mountPointsIn(""), Optional(ElementsAre()));
}

TEST(MountPoints, OfALineThatCannotBeReadAreNotGuessed) {
    EXPECT_EQ(mountPointsIn("22 1 254:0 / / rw\n23 22 0:21\n"), std::nullopt);
}

class Mounts : public RemovalTest {
protected:
    // Both ways of removal leave all as it is, and so does putting back.
    void expectStays(const std::string& path, int code) {
        const RemovalTarget target = {path};
        for (const bool outright : {false, true}) {
            const RemovalReport report = outright ? disk.remover().removeOutright({target})
                                                  : disk.remover().recycle({target});
            EXPECT_TRUE(report.trashed.empty());
            EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, code, path}));
        }
        EXPECT_EQ(disk.remover().putBack(path, "/Users/sam/new/place"),
                  (Failure{Failure::Kind::refused, code, path}));
        EXPECT_TRUE(disk.stands(path));
        EXPECT_FALSE(disk.stands("/Users/sam/new"));
        EXPECT_EQ(disk.calls.count("rename"), 0);
        EXPECT_EQ(disk.calls.count("unlink"), 0);
    }
};

TEST_F(Mounts, OfTheHostAtOrBelowAnItemKeepItInItsPlace) {
    disk.file("/Users/sam/Library/Caches/volume/kept");
    disk.file("/Users/sam/Library/Caches/other");
    disk.host.mounts = {"/Users/sam/Library/Caches/volume"};
    (void)disk.plan("/Users/sam/Library/Caches");
    expectStays("/Users/sam/Library/Caches/volume", EBUSY);
    expectStays("/Users/sam/Library/Caches", EBUSY);
    expectStays("/Users/sam/Library", EBUSY);
    EXPECT_TRUE(disk.stands("/Users/sam/Library/Caches/volume/kept"));
    EXPECT_TRUE(disk.stands("/Users/sam/Library/Caches/other"));
}

TEST_F(Mounts, OfTheHostAreKnownByPlaceAndNotByText) {
    disk.file("/Data/Caches/volume/kept");
    disk.file("/Data/Caches/volume 2/goes");
    disk.link("/Users/sam/Library", "../../Data");
    disk.host.mounts = {"/Users/sam/Library/Caches/volume/"};
    expectStays("/Data/Caches", EBUSY);
    expectStays("/Users/sam/Library/Caches", EBUSY);
    EXPECT_EQ(disk.remover().recycle({disk.plan("/Data/Caches/volume 2")}).error, std::nullopt);
}

TEST_F(Mounts, OfTheHostLetNothingOutOfThemButMayBeDeletedFrom) {
    disk.file("/Volumes/Stick/a");
    disk.file("/Volumes/Stick/b");
    disk.host.mounts = {"/Volumes/Stick"};
    const RemovalReport report = disk.remover().recycle({disk.plan("/Volumes/Stick/a")});
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, EXDEV, "/Volumes/Stick/a"}));
    EXPECT_TRUE(disk.stands("/Volumes/Stick/a"));
    EXPECT_EQ(disk.remover().removeOutright({{"/Volumes/Stick/b"}}).error, std::nullopt);
    EXPECT_THAT(disk.names("/Volumes/Stick"), ElementsAre("a"));
}

TEST_F(Mounts, OfTheHostLetNothingIntoThem) {
    disk.file("/Users/sam/.Trash/a");
    disk.folder("/Volumes/Stick");
    disk.host.mounts = {"/Volumes/Stick"};
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Volumes/Stick/new/a"),
              (Failure{Failure::Kind::refused, EXDEV, "/Volumes/Stick/new/a"}));
    EXPECT_THAT(disk.names("/Volumes/Stick"), ElementsAre());
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/a"));
}

TEST_F(Mounts, OfTheHostThatHoldTheHomeLetItemsMoveWithinThem) {
    disk.file("/Users/sam/a");
    disk.host.mounts = {"/Users"};
    EXPECT_EQ(disk.remover().recycle({disk.plan("/Users/sam/a")}).error, std::nullopt);
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/a"), std::nullopt);
    disk.file("/b");
    EXPECT_EQ(disk.remover().recycle({disk.plan("/b")}).error,
              (Failure{Failure::Kind::refused, EXDEV, "/b"}));
}

TEST_F(Mounts, ThatCannotBeLookedForKeepFoldersInTheirPlace) {
    disk.file("/Users/sam/folder/a");
    disk.file("/Users/sam/file");
    const RemovalTarget folder = disk.plan("/Users/sam/folder");
    const RemovalTarget file = disk.plan("/Users/sam/file");
    for (const char* call : {"openMountTable", "realPath"}) {
        disk.calls.failAll(call, EACCES);
        for (const bool outright : {false, true}) {
            const RemovalReport report = outright ? disk.remover().removeOutright({folder})
                                                  : disk.remover().recycle({folder});
            EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, EACCES, "/Users/sam/folder"}));
        }
        disk.calls.failAll(call, 0);
    }
    EXPECT_TRUE(disk.stands("/Users/sam/folder/a"));
    disk.calls.failAll("openMountTable", EACCES);
    EXPECT_EQ(disk.remover().recycle({file}).error, std::nullopt);
}

TEST_F(Mounts, ThatTheSystemDoesNotTellKeepEverythingInItsPlace) {
    disk.file("/Users/sam/file");
    const RemovalTarget file = disk.plan("/Users/sam/file");
    disk.calls.afterLook = [](struct statx& facts) { facts.stx_mask &= ~STATX_MNT_ID; };
    EXPECT_EQ(disk.remover().recycle({file}).error->kind, Failure::Kind::refused);
    EXPECT_EQ(disk.remover().removeOutright({file}).error->kind, Failure::Kind::refused);
    EXPECT_TRUE(disk.stands("/Users/sam/file"));
}

TEST_F(Mounts, OfTheMachineAtOrBelowAnItemKeepItInItsPlace) {
    disk.file("/Users/sam/Library/Caches/other");
    disk.folder("/Users/sam/Library/Caches/in memory/x");
    disk.folder("/Users/sam/Library/bound here");
    disk.file("/Users/sam/bound file");
    (void)disk.plan("/Users/sam/Library/Caches");
    whereMountingIsAllowed([&] {
        mountMemory(disk.place("/Users/sam/Library/Caches/in memory"));
        // A bound folder has the device number of what surrounds it.
        mountFolder(disk.place("/Canary"), disk.place("/Users/sam/Library/bound here"));
        mountFolder(disk.place("/Canary/letter.txt"), disk.place("/Users/sam/bound file"));
        disk.file("/Users/sam/Library/Caches/in memory/kept");
        for (const char* path :
             {"/Users/sam/Library/Caches", "/Users/sam/Library/Caches/in memory",
              "/Users/sam/Library/bound here", "/Users/sam/bound file", "/Users/sam/Library"}) {
            expectStays(path, EBUSY);
        }
        EXPECT_TRUE(disk.stands("/Users/sam/Library/Caches/in memory/kept"));
        EXPECT_TRUE(disk.stands("/Users/sam/Library/bound here/letter.txt"));
        disk.expectCanaryUntouched();
    });
}

TEST_F(Mounts, OfTheMachineLetNothingOutOfThemAndNothingIn) {
    disk.folder("/Volumes/Stick");
    disk.file("/Users/sam/here");
    (void)disk.plan("/Users/sam/here");
    whereMountingIsAllowed([&] {
        mountMemory(disk.place("/Volumes/Stick"));
        disk.file("/Volumes/Stick/a");
        disk.file("/Volumes/Stick/folder/b");
        EXPECT_EQ(disk.remover().recycle({{"/Volumes/Stick/a"}}).error,
                  (Failure{Failure::Kind::refused, EXDEV, "/Volumes/Stick/a"}));
        EXPECT_TRUE(disk.stands("/Volumes/Stick/a"));
        EXPECT_EQ(disk.remover().putBack("/Users/sam/here", "/Volumes/Stick/new/folders/a"),
                  (Failure{Failure::Kind::refused, EXDEV, "/Volumes/Stick/new/folders/a"}));
        EXPECT_TRUE(disk.stands("/Users/sam/here"));
        EXPECT_FALSE(disk.stands("/Volumes/Stick/new"));
        EXPECT_EQ(disk.remover().removeOutright({{"/Volumes/Stick/folder"}}).error, std::nullopt);
        EXPECT_THAT(disk.names("/Volumes/Stick"), ElementsAre("a"));
    });
}

TEST_F(Mounts, OfTheMachineThatComeDuringADeletionAreNotEntered) {
    disk.file("/Users/sam/Library/1/2/point/x");
    disk.file("/Users/sam/Library/1/other");
    whereMountingIsAllowed([&] {
        disk.calls.before = [&](const std::string& call, const std::string& item) {
            if (call == "open" && item == "2") {
                mountFolder(disk.place("/Canary"), disk.place("/Users/sam/Library/1/2/point"));
            }
        };
        const RemovalReport report = disk.remover().removeOutright({{"/Users/sam/Library/1"}});
        EXPECT_EQ(report.error,
                  (Failure{Failure::Kind::refused, EXDEV, "/Users/sam/Library/1/2/point"}));
        EXPECT_FALSE(disk.stands("/Users/sam/Library/1/other"));
        disk.expectCanaryUntouched();
    });
}

TEST_F(Mounts, AFullDiskLeavesEverythingAsItIs) {
    disk.folder("/small");
    whereMountingIsAllowed([&] {
        mountMemory(disk.place("/small"), "64k");
        disk.file("/small/Users/sam/Library/a", "aaa");
        disk.file("/small/Users/sam/.Trash/put back", "bbb");
        disk.file("/small/filler", std::string(1 << 20, 'f'));
        EXPECT_LT(disk.bytes("/small/filler").size(), 1U << 20);
        Result<DiskRoot> root = DiskRoot::open(disk.place("/small"));
        ASSERT_TRUE(root.ok());
        const HostAnswers answers(disk.host);
        DiskRemover remover(*root, answers);
        const RemovalReport report = remover.recycle({{"/Users/sam/Library/a"}});
        const bool moved = report.trashed.size() == 1;
        EXPECT_EQ(moved, !report.error.has_value());
        EXPECT_EQ(disk.stands("/small/Users/sam/Library/a"), !moved);
        EXPECT_EQ(disk.stands("/small/Users/sam/.Trash/a"), moved);
        const std::optional<Failure> failure =
            remover.putBack("/Users/sam/.Trash/put back", "/Users/sam/x/y/z");
        EXPECT_EQ(disk.stands("/small/Users/sam/.Trash/put back"), failure.has_value());
        EXPECT_EQ(disk.stands("/small/Users/sam/x"), !failure.has_value());
        EXPECT_EQ(remover.removeOutright({{"/filler"}}).error, std::nullopt);
    });
}

TEST_F(Mounts, ATrashThatIsAVolumeOfItsOwnTakesNothing) {
    disk.folder("/Users/sam/.Trash");
    disk.file("/Users/sam/a");
    whereMountingIsAllowed([&] {
        mountMemory(disk.place("/Users/sam/.Trash"));
        EXPECT_EQ(disk.remover().recycle({{"/Users/sam/a"}}).error,
                  (Failure{Failure::Kind::refused, EXDEV, "/Users/sam/.Trash"}));
        EXPECT_TRUE(disk.stands("/Users/sam/a"));
    });
}

}  // namespace

}  // namespace morvane::folder
