#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/folder/free_name.h"
#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;

using TrashNames = RemovalTest;

TEST_F(TrashNames, MovesFilesFoldersAndLinksUnderTheirOwnNames) {
    disk.file("/Users/sam/Library/Caches/a.bin", "aaa");
    disk.file("/Users/sam/Library/Caches/folder/inner/b.bin");
    disk.link("/Users/sam/Library/Caches/to canary", "/Canary");
    const RemovalReport report =
        disk.remover().recycle({disk.plan("/Users/sam/Library/Caches/a.bin"),
                                disk.plan("/Users/sam/Library/Caches/folder"),
                                disk.plan("/Users/sam/Library/Caches/to canary")});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed,
              (MovedItems{{"/Users/sam/Library/Caches/a.bin", "/Users/sam/.Trash/a.bin"},
                          {"/Users/sam/Library/Caches/folder", "/Users/sam/.Trash/folder"},
                          {"/Users/sam/Library/Caches/to canary", "/Users/sam/.Trash/to canary"}}));
    EXPECT_THAT(disk.names("/Users/sam/Library/Caches"), ElementsAre());
    EXPECT_THAT(disk.names("/Users/sam/.Trash"), ElementsAre("a.bin", "folder", "to canary"));
    EXPECT_EQ(disk.bytes("/Users/sam/.Trash/a.bin"), "aaa");
    EXPECT_EQ(disk.kind("/Users/sam/.Trash/to canary"), 'l');
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/folder/inner/b.bin"));
}

TEST_F(TrashNames, DoesTheSameAgainToNothing) {
    disk.file("/Users/sam/a.bin");
    const RemovalTarget target = disk.plan("/Users/sam/a.bin");
    EXPECT_EQ(disk.remover().recycle({target}).trashed.size(), 1U);
    const RemovalReport again = disk.remover().recycle({target});
    EXPECT_TRUE(again.trashed.empty());
    ASSERT_TRUE(again.error);
    EXPECT_EQ(again.error->kind, Failure::Kind::notFound);
    EXPECT_EQ(again.error->path, "/Users/sam/a.bin");
    EXPECT_THAT(disk.names("/Users/sam/.Trash"), ElementsAre("a.bin"));
}

TEST_F(TrashNames, FindsAFreeNameBesideAFolderAFileAndADanglingLink) {
    disk.folder("/Users/sam/.Trash/one.txt");
    disk.file("/Users/sam/.Trash/two.txt", "old");
    disk.link("/Users/sam/.Trash/three.txt", "nowhere");
    disk.file("/Users/sam/one.txt", "new one");
    disk.file("/Users/sam/two.txt", "new two");
    disk.file("/Users/sam/three.txt", "new three");
    const RemovalReport report =
        disk.remover().recycle({disk.plan("/Users/sam/one.txt"), disk.plan("/Users/sam/two.txt"),
                                disk.plan("/Users/sam/three.txt")});
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed.at("/Users/sam/one.txt"), "/Users/sam/.Trash/one 2.txt");
    EXPECT_EQ(report.trashed.at("/Users/sam/two.txt"), "/Users/sam/.Trash/two 2.txt");
    EXPECT_EQ(report.trashed.at("/Users/sam/three.txt"), "/Users/sam/.Trash/three 2.txt");
    EXPECT_EQ(disk.bytes("/Users/sam/.Trash/two.txt"), "old");
    EXPECT_EQ(disk.bytes("/Users/sam/.Trash/two 2.txt"), "new two");
    EXPECT_EQ(disk.kind("/Users/sam/.Trash/three.txt"), 'l');
    EXPECT_EQ(disk.names("/Users/sam/.Trash/one.txt"), std::vector<std::string>{});
}

TEST_F(TrashNames, PutsAFolderBesideAnEmptyFolderOfItsName) {
    disk.folder("/Users/sam/.Trash/Caches");
    disk.file("/Users/sam/Library/Caches/x");
    const RemovalReport report = disk.remover().recycle({disk.plan("/Users/sam/Library/Caches")});
    EXPECT_EQ(report.trashed.at("/Users/sam/Library/Caches"), "/Users/sam/.Trash/Caches 2");
    EXPECT_THAT(disk.names("/Users/sam/.Trash/Caches"), ElementsAre());
}

TEST_F(TrashNames, TakesAThousandOfOneNameWithAboutAThousandRenames) {
    std::vector<RemovalTarget> targets;
    for (int i = 0; i < 1000; ++i) {
        const std::string path = "/Users/sam/Library/" + std::to_string(i) + "/Cache.db";
        disk.file(path);
        targets.push_back(disk.plan(path));
    }
    const RemovalReport report = disk.remover().recycle(targets);
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed.size(), 1000U);
    EXPECT_EQ(disk.names("/Users/sam/.Trash").size(), 1000U);
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/Cache.db"));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/Cache 2.db"));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/Cache 1000.db"));
    EXPECT_EQ(disk.calls.count("rename"), 1000);
}

TEST_F(TrashNames, FindsItsWayPastAThousandOfOneNameInFewSteps) {
    disk.file("/Users/sam/.Trash/Cache.db");
    for (int i = 2; i <= 1000; ++i) {
        disk.file("/Users/sam/.Trash/Cache " + std::to_string(i) + ".db");
    }
    disk.file("/Users/sam/Cache.db");
    const RemovalReport report = disk.remover().recycle({disk.plan("/Users/sam/Cache.db")});
    EXPECT_EQ(report.trashed.at("/Users/sam/Cache.db"), "/Users/sam/.Trash/Cache 1001.db");
    EXPECT_EQ(disk.calls.count("rename"), 2);
    EXPECT_LT(disk.calls.count("look"), 50);
}

TEST_F(TrashNames, GivesUpWhenEveryNameIsTakenAtTheLastMoment) {
    disk.file("/Users/sam/a.txt");
    const RemovalTarget target = disk.plan("/Users/sam/a.txt");
    disk.calls.failAll("rename", EEXIST);
    const RemovalReport report = disk.remover().recycle({target});
    EXPECT_TRUE(report.trashed.empty());
    EXPECT_EQ(report.error, (Failure{Failure::Kind::failed, EEXIST, "/Users/sam/a.txt"}));
    EXPECT_TRUE(disk.stands("/Users/sam/a.txt"));
    EXPECT_EQ(disk.calls.count("rename"), 200);
}

TEST_F(TrashNames, TakesTheNextNameWhenAnotherTakesTheFreeOneFirst) {
    disk.file("/Users/sam/.Trash/a.txt");
    disk.file("/Users/sam/a.txt", "ours");
    const RemovalTarget target = disk.plan("/Users/sam/a.txt");
    disk.calls.before = [&](const std::string& call, const std::string&) {
        if (call == "rename" && disk.calls.count("rename") == 1) {
            disk.file("/Users/sam/.Trash/a 2.txt", "theirs");
        }
    };
    const RemovalReport report = disk.remover().recycle({target});
    EXPECT_EQ(report.trashed.at("/Users/sam/a.txt"), "/Users/sam/.Trash/a 3.txt");
    EXPECT_EQ(disk.bytes("/Users/sam/.Trash/a 2.txt"), "theirs");
    EXPECT_EQ(disk.bytes("/Users/sam/.Trash/a 3.txt"), "ours");
}

TEST_F(TrashNames, CutsNamesOf255BytesToMakeRoom) {
    const std::string plain(255, 'n');
    std::string letters = "a";
    for (int i = 0; i < 127; ++i) letters += "é";
    const std::string noText(255, '\xA9');
    for (const std::string& name : {plain, letters, noText}) {
        disk.file("/Users/sam/.Trash/" + name);
        disk.file("/Users/sam/Library/" + name);
        const RemovalReport report =
            disk.remover().recycle({disk.plan("/Users/sam/Library/" + name)});
        EXPECT_EQ(report.error, std::nullopt);
        EXPECT_EQ(report.trashed.size(), 1U);
    }
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/" + std::string(253, 'n') + " 2"));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/" + letters.substr(0, 253) + " 2"));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/" + std::string(253, '\xA9') + " 2"));
}

TEST_F(TrashNames, KeepsTheBytesOfNamesAsTheyAre) {
    disk.file("/Users/sam/new\nline \xff.txt");
    const RemovalReport report =
        disk.remover().recycle({disk.plan("/Users/sam/new\nline \xff.txt")});
    EXPECT_EQ(report.trashed.at("/Users/sam/new\nline \xff.txt"),
              "/Users/sam/.Trash/new\nline \xff.txt");
}

TEST_F(TrashNames, RefusesWhatLiesInTheTrashAlready) {
    disk.file("/Users/sam/.Trash/a.txt");
    const RemovalReport report = disk.remover().recycle({{"/Users/sam/.Trash/a.txt"}});
    EXPECT_TRUE(report.trashed.empty());
    EXPECT_EQ(report.error, (Failure{Failure::Kind::refused, 0, "/Users/sam/.Trash/a.txt"}));
    EXPECT_THAT(disk.names("/Users/sam/.Trash"), ElementsAre("a.txt"));
}

}  // namespace

}  // namespace morvane::folder
