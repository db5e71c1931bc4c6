#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;

class TrashFolderTest : public RemovalTest {
protected:
    TrashFolderTest() {
        disk.file("/Users/sam/Library/a.txt");
        disk.file("/Users/sam/Library/b.txt");
    }

    RemovalReport recycleBoth() {
        return disk.remover().recycle(
            {disk.plan("/Users/sam/Library/a.txt"), disk.plan("/Users/sam/Library/b.txt")});
    }

    void expectBothStay(const RemovalReport& report) {
        EXPECT_TRUE(report.trashed.empty());
        EXPECT_TRUE(report.error.has_value());
        EXPECT_THAT(disk.names("/Users/sam/Library"), ElementsAre("a.txt", "b.txt"));
    }
};

TEST_F(TrashFolderTest, IsMadeForItsOwnerAloneWhenFirstNeeded) {
    EXPECT_FALSE(disk.stands("/Users/sam/.Trash"));
    const RemovalReport report = recycleBoth();
    EXPECT_EQ(report.error, std::nullopt);
    struct stat status{};
    ASSERT_EQ(::lstat(disk.place("/Users/sam/.Trash").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFDIR | 0700U);
    EXPECT_EQ(disk.calls.count("makeFolder"), 1);
}

TEST_F(TrashFolderTest, IsNotMadeForNothing) {
    EXPECT_EQ(disk.remover().recycle({}).error, std::nullopt);
    EXPECT_TRUE(disk.remover().recycle({{"/Users/sam/not there"}}).error);
    EXPECT_FALSE(disk.stands("/Users/sam/.Trash"));
}

TEST_F(TrashFolderTest, ThatIsAFileTakesNothing) {
    disk.file("/Users/sam/.Trash", "I am a file");
    const RemovalReport report = recycleBoth();
    expectBothStay(report);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, ENOTDIR, "/Users/sam/.Trash"}));
    EXPECT_EQ(disk.bytes("/Users/sam/.Trash"), "I am a file");
}

TEST_F(TrashFolderTest, ThatIsALinkTakesNothing) {
    for (const char* target : {"/Canary", "../../Canary", "nowhere"}) {
        disk.link("/Users/sam/.Trash", target);
        const RemovalReport report = recycleBoth();
        expectBothStay(report);
        EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, ENOTDIR, "/Users/sam/.Trash"}));
        std::filesystem::remove(disk.place("/Users/sam/.Trash"));
    }
}

TEST_F(TrashFolderTest, ThatIsSomebodyElsesTakesNothing) {
    disk.folder("/Users/sam/.Trash");
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(disk.place("/Users/sam/.Trash").c_str(), 4321, 4321), 0);
    } else {  // only the superuser may give a folder away
        disk.calls.afterLook = [&](struct statx& facts) {
            if (facts.stx_ino == disk.inode("/Users/sam/.Trash")) facts.stx_uid = 4321;
        };
    }
    const RemovalReport report = recycleBoth();
    expectBothStay(report);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, EPERM, "/Users/sam/.Trash"}));
}

TEST_F(TrashFolderTest, ThatIsTheHomesOwnersIsRight) {
    disk.folder("/Users/sam/.Trash");
    if (::geteuid() == 0) {
        for (const char* path : {"/Users/sam", "/Users/sam/.Trash"}) {
            ASSERT_EQ(::chown(disk.place(path).c_str(), 4321, 4321), 0);
        }
    }
    EXPECT_EQ(recycleBoth().trashed.size(), 2U);
}

TEST_F(TrashFolderTest, ThatCannotBeWrittenToTakesNothing) {
    disk.folder("/Users/sam/.Trash");
    if (::geteuid() == 0) {
        disk.calls.failAll("rename", EACCES);  // the superuser writes everywhere
    } else {
        std::filesystem::permissions(disk.place("/Users/sam/.Trash"), std::filesystem::perms(0500));
    }
    const RemovalReport report = recycleBoth();
    expectBothStay(report);
    EXPECT_EQ(report.error,
              (Failure{Failure::Kind::notAllowed, EACCES, "/Users/sam/Library/a.txt"}));
    EXPECT_EQ(disk.calls.count("rename"), 2);
}

TEST_F(TrashFolderTest, ThatCannotBeMadeTakesNothing) {
    disk.calls.failAll("makeFolder", ENOSPC);
    const RemovalReport report = recycleBoth();
    expectBothStay(report);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::failed, ENOSPC, "/Users/sam/.Trash"}));
    EXPECT_EQ(disk.calls.count("rename"), 0);
}

TEST_F(TrashFolderTest, OfAHomeThatIsNotThereTakesNothing) {
    disk.host.home = "/Users/nobody";
    const RemovalReport report = recycleBoth();
    expectBothStay(report);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::notFound, ENOENT, "/Users/nobody/.Trash"}));
    EXPECT_FALSE(disk.stands("/Users/nobody"));
}

TEST_F(TrashFolderTest, OfAHomeThatIsALinkIsFoundBehindIt) {
    disk.link("/Users/alias", "sam");
    disk.host.home = "/Users/alias";
    const RemovalReport report = recycleBoth();
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed.at("/Users/sam/Library/a.txt"), "/Users/alias/.Trash/a.txt");
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/a.txt"));
}

TEST_F(TrashFolderTest, TakesFromFoldersThatAreLinks) {
    disk.folder("/Users/sam/Away/Caches");
    disk.link("/Users/sam/Library/Caches", "../Away/Caches");
    disk.link("/Users/sam/Downloads", "/Users/sam/Away");
    disk.file("/Users/sam/Away/Caches/com.example");
    disk.file("/Users/sam/Away/setup.dmg");
    const RemovalReport report = disk.remover().recycle(
        {disk.plan("/Users/sam/Library/Caches/com.example"),
         {"/Users/sam/Downloads/setup.dmg", disk.identity("/Users/sam/Away")}});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(
        report.trashed,
        (MovedItems{{"/Users/sam/Library/Caches/com.example", "/Users/sam/.Trash/com.example"},
                    {"/Users/sam/Downloads/setup.dmg", "/Users/sam/.Trash/setup.dmg"}}));
    EXPECT_EQ(disk.kind("/Users/sam/Library/Caches"), 'l');
    EXPECT_EQ(disk.kind("/Users/sam/Downloads"), 'l');
}

TEST_F(TrashFolderTest, IsNotGoneAroundWhenTheFileSystemKnowsNoSafeRename) {
    for (const int code : {EINVAL, ENOSYS, ENOTSUP, EXDEV}) {
        disk.calls.failAll("rename", code);
        const RemovalReport report = recycleBoth();
        expectBothStay(report);
        EXPECT_EQ(report.error,
                  (Failure{Failure::Kind::refused, code, "/Users/sam/Library/a.txt"}));
    }
    EXPECT_THAT(disk.names("/Users/sam/.Trash"), ElementsAre());
    EXPECT_EQ(disk.calls.count("unlink"), 0);
    EXPECT_EQ(disk.calls.count("rename"), 8);
}

TEST_F(TrashFolderTest, OnAFullDiskTakesNothing) {
    disk.calls.failAll("rename", ENOSPC);
    const RemovalReport report = recycleBoth();
    expectBothStay(report);
    EXPECT_EQ(report.error, (Failure{Failure::Kind::failed, ENOSPC, "/Users/sam/Library/a.txt"}));
}

}  // namespace

}  // namespace morvane::folder
