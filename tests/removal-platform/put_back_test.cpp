#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "removal_disk.h"

namespace morvane::folder {

namespace {

using ::testing::ElementsAre;

class PutBack : public RemovalTest {
protected:
    // Moves a file there and forgets how.
    void trash(const std::string& path) {
        disk.file(path, "from " + path);
        EXPECT_EQ(disk.remover().recycle({disk.plan(path)}).error, std::nullopt);
    }
};

TEST_F(PutBack, MovesItemsToWhereTheyStood) {
    trash("/Users/sam/Library/a");
    disk.link("/Users/sam/.Trash/link", "/Canary");
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/a"), std::nullopt);
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/link", "/Users/sam/link"), std::nullopt);
    EXPECT_EQ(disk.bytes("/Users/sam/Library/a"), "from /Users/sam/Library/a");
    EXPECT_EQ(disk.kind("/Users/sam/link"), 'l');
    EXPECT_THAT(disk.names("/Users/sam/.Trash"), ElementsAre());
}

TEST_F(PutBack, MakesTheFoldersThatAreMissing) {
    trash("/Users/sam/Library/one/two/a");
    std::filesystem::remove_all(disk.place("/Users/sam/Library"));
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/one/two/a"),
              std::nullopt);
    EXPECT_TRUE(disk.stands("/Users/sam/Library/one/two/a"));
    EXPECT_EQ(disk.calls.count("makeFolder"), 1 + 3);  // the Trash and three folders
}

TEST_F(PutBack, GoesThroughLinksThatLeadToFolders) {
    disk.file("/Users/sam/.Trash/a");
    disk.folder("/Users/sam/Away");
    disk.link("/Users/sam/Library", "/Users/sam/Away");
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/new/a"),
              std::nullopt);
    EXPECT_TRUE(disk.stands("/Users/sam/Away/new/a"));
}

TEST_F(PutBack, DoesNotMakeALinkLeadSomewhere) {
    trash("/Users/sam/a");
    disk.folder("/Volumes");
    disk.link("/Users/sam/Library", "/Volumes/Unplugged");
    const std::optional<Failure> failure =
        disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/new/a");
    ASSERT_TRUE(failure);
    EXPECT_THAT(disk.names("/Volumes"), ElementsAre());
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/a"));
}

TEST_F(PutBack, FailsWhenAnythingAtAllStandsThere) {
    trash("/Users/sam/Library/a");
    const std::vector<std::function<void()>> ways = {
        [&] { disk.file("/Users/sam/Library/a", "new"); },
        [&] { disk.folder("/Users/sam/Library/a"); },
        [&] { disk.file("/Users/sam/Library/a/full"); },
        [&] { disk.link("/Users/sam/Library/a", "nowhere"); },
        [&] { disk.link("/Users/sam/Library/a", "/Canary"); },
        [&] { disk.link("/Users/sam/Library/a", "../.Trash/a"); }};
    for (const auto& put : ways) {
        put();
        const test::TreeSnapshot before = test::takeSnapshot(disk.place("/Users"));
        EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/a"),
                  (Failure{Failure::Kind::failed, EEXIST, "/Users/sam/Library/a"}));
        EXPECT_EQ(test::differences(before, test::takeSnapshot(disk.place("/Users"))), "");
        std::filesystem::remove_all(disk.place("/Users/sam/Library/a"));
    }
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/a"), std::nullopt);
}

TEST_F(PutBack, DoesNotPutAFolderOverAnEmptyOne) {
    disk.file("/Users/sam/.Trash/folder/x");
    disk.folder("/Users/sam/folder");
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/folder", "/Users/sam/folder"),
              (Failure{Failure::Kind::failed, EEXIST, "/Users/sam/folder"}));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/folder/x"));
}

TEST_F(PutBack, FailsWhenAFileStandsWhereAFolderHasToBe) {
    trash("/Users/sam/a");
    disk.file("/Users/sam/Library", "a file");
    const std::optional<Failure> failure =
        disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/x/a");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->code, ENOTDIR);
    EXPECT_EQ(disk.bytes("/Users/sam/Library"), "a file");
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/a"));
}

TEST_F(PutBack, TakesBackTheFoldersItMadeWhenTheMoveFails) {
    trash("/Users/sam/a");
    disk.folder("/Users/sam/was/here");
    disk.calls.failOne("rename", 2, EIO);
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/was/here/new/newer/a"),
              (Failure{Failure::Kind::failed, EIO, "/Users/sam/was/here/new/newer/a"}));
    EXPECT_THAT(disk.names("/Users/sam/was/here"), ElementsAre());
    EXPECT_TRUE(disk.stands("/Users/sam/was/here"));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/a"));
}

TEST_F(PutBack, LeavesTheFoldersItMadeWhenSomebodyUsesThem) {
    trash("/Users/sam/a");
    disk.calls.before = [&](const std::string& call, const std::string&) {
        if (call == "rename") disk.file("/Users/sam/new/theirs");
    };
    disk.calls.failOne("rename", 2, EIO);
    EXPECT_TRUE(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/new/newer/a"));
    EXPECT_THAT(disk.names("/Users/sam/new"), ElementsAre("theirs"));
}

TEST_F(PutBack, TakesNothingBackFromAFolderThatIsNotWhereItWasMade) {
    trash("/Users/sam/a");
    disk.folder("/Users/sam/other");
    disk.calls.before = [&](const std::string& call, const std::string&) {
        if (call == "rename") {
            std::filesystem::rename(disk.place("/Users/sam/new/newer"),
                                    disk.place("/Users/sam/other/newer"));
        }
    };
    disk.calls.failOne("rename", 2, EIO);
    EXPECT_TRUE(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/new/newer/a"));
    EXPECT_THAT(disk.names("/Users/sam/other"), ElementsAre("newer"));
}

TEST_F(PutBack, OfWhatIsNotThereMakesNoFolder) {
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/new/a"),
              (Failure{Failure::Kind::notFound, ENOENT, "/Users/sam/.Trash/a"}));
    EXPECT_FALSE(disk.stands("/Users/sam/new"));
}

TEST_F(PutBack, RefusesToPutAFolderIntoItselfAndLeavesNothingBehind) {
    disk.file("/Users/sam/.Trash/folder/x");
    EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/folder", "/Users/sam/.Trash/folder/in/it"),
              (Failure{Failure::Kind::refused, EINVAL, "/Users/sam/.Trash/folder/in/it"}));
    EXPECT_THAT(disk.names("/Users/sam/.Trash/folder"), ElementsAre("x"));
}

TEST_F(PutBack, RefusesPlacesThatAreNone) {
    trash("/Users/sam/a");
    for (const char* to : {"", "a", "/", "/.."}) {
        EXPECT_EQ(disk.remover().putBack("/Users/sam/.Trash/a", to),
                  (Failure{Failure::Kind::refused, 0, to}));
    }
    EXPECT_EQ(disk.remover().putBack("", "/Users/sam/a"), (Failure{Failure::Kind::refused, 0, ""}));
    EXPECT_TRUE(disk.stands("/Users/sam/.Trash/a"));
}

}  // namespace

}  // namespace morvane::folder
