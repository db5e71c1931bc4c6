// The history and putting back.

#include "system/removal_disk.h"

namespace morvane::test {
namespace {

using Restore = RemovalTest;

TEST_F(Restore, IsPutBackWholeAndOnce) {
    disk.text(caches + "com.a.One/data", "content");
    scan();
    sweep({"caches"});
    driver().call("scanApps", {{"force", true}});
    restore();
    EXPECT_EQ(disk.content(caches + "com.a.One/data"), "content");
    EXPECT_EQ(state(), "putBack");
    EXPECT_EQ(entry().at("restored"), true);
    EXPECT_EQ(entry().at("trashed"), Json::object());
    EXPECT_EQ(driver().get("appsScannedAt"), nullptr);
    EXPECT_EQ(driver().get("crumbItems"), Json::array());
    restore();
    EXPECT_EQ(state(), "putBack");
}

TEST_F(Restore, NeverOverwritesWhatIsInTheWay) {
    disk.text(caches + "com.a.One/data", "old");
    scan();
    sweep({"caches"});
    disk.text(caches + "com.a.One/data", "new");
    restore();
    EXPECT_EQ(problem(), "Something new is in the way of 1 item.");
    EXPECT_EQ(disk.content(caches + "com.a.One/data"), "new");
    EXPECT_EQ(state(), "restorable");
    disk.remove(caches + "com.a.One");
    disk.link(caches + "com.a.One", "/nowhere");
    restore();
    EXPECT_EQ(problem(), "Something new is in the way of 1 item.");
    disk.remove(caches + "com.a.One");
    restore();
    EXPECT_EQ(problem(), nullptr);
    EXPECT_EQ(disk.content(caches + "com.a.One/data"), "old");
}

TEST_F(Restore, WithABlockedAndAFailedItemTellsTheCount) {
    for (const std::string name : {"com.a.One", "com.a.Two", "com.a.Three"}) {
        disk.file(caches + name + "/data", 4096);
    }
    scan();
    sweep({"caches"});
    disk.text(caches + "com.a.One/data", "new");
    driver().host({{"immovable", {"/Users/sam/.Trash/com.a.Two"}}});
    restore();
    EXPECT_EQ(problem(), "2 items couldn’t be put back.");
    EXPECT_EQ(entry().at("trashed").size(), 2U);
    EXPECT_TRUE(disk.has(caches + "com.a.Three/data"));
    driver().call("relaunch");
    EXPECT_EQ(driver().get("restoreProblem"), Json::object());
    EXPECT_EQ(state(), "restorable");
}

TEST_F(Restore, WhoseTrashWasEmptiedSaysSo) {
    disk.file(caches + "com.a.One/data", 4096);
    disk.file(caches + "com.a.Two/data", 4096);
    scan();
    sweep({"caches"});
    disk.remove("/Users/sam/.Trash/com.a.One");
    EXPECT_EQ(state(), "restorable");
    disk.remove("/Users/sam/.Trash/com.a.Two");
    EXPECT_EQ(state(), "emptied");
    const Json before = entry();
    restore();
    EXPECT_EQ(entry(), before);
    EXPECT_EQ(problem(), nullptr);
}

TEST_F(Restore, PartlyEmptiedFromTheTrashIsPutBackWithoutAMessage) {
    for (const std::string name : {"com.a.One", "com.a.Two", "com.a.Three"}) {
        disk.file(caches + name + "/data", 4096);
    }
    scan();
    sweep({"caches"});
    disk.remove("/Users/sam/.Trash/com.a.One");
    restore();
    EXPECT_EQ(state(), "putBack");
    EXPECT_EQ(problem(), nullptr);
    EXPECT_EQ(disk.names(caches), (std::vector<std::string>{"com.a.Three", "com.a.Two"}));
}

TEST_F(Restore, MakesTheOldFolderAgain) {
    disk.file("/Users/sam/Library/Logs/deep/er/old.log", 4096);
    scan();
    sweep({"logs"});
    disk.remove("/Users/sam/Library/Logs");
    restore();
    EXPECT_TRUE(disk.has("/Users/sam/Library/Logs/deep/er/old.log"));
}

TEST_F(Restore, ElevenSweepsLeaveTenEntries) {
    for (int number = 0; number < 11; ++number) {
        disk.file(caches + "com.a.App" + std::to_string(number) + "/data", 4096 * (number + 1));
        scan();
        sweep({"caches"});
        driver().advance(60);
    }
    EXPECT_EQ(driver().get("history").size(), 10U);
    EXPECT_EQ(entry(0).at("summary"), "1 item · 45 KB");
    EXPECT_EQ(entry(9).at("summary"), "1 item · 8 KB");
    EXPECT_EQ(entry(0).at("date"), "2026-06-15T12:10:00.000Z");
    const Json history = driver().get("history");
    driver().call("relaunch");
    EXPECT_EQ(driver().get("history"), history);
}

TEST_F(Restore, FromTheMenuBarPutBackElsewhereCannotBeUndone) {
    disk.file(caches + "com.a.One/data", 8192);
    scan();
    driver().call("sweepFromMenuBar");
    restore();
    EXPECT_EQ(driver().get("menuBarPhase"), "idle");
    EXPECT_EQ(driver().get("menuBarTrashed"), Json::object());
}

}  // namespace
}  // namespace morvane::test
