// The review of a program on a disk: what is chosen, what it comes to, and what stood in its way.

#include "system/screen_disk.h"

namespace morvane::test {
namespace {

class ScreenReview : public OnScreen {
protected:
    Json shown() { return screen("sweepReview"); }
    Json group(std::size_t index = 0) { return shown().at("groups").at(index); }
    Json footer() { return shown().at("footer"); }
    Json preset() { return shown().at("preset").at("selected"); }
    void ignoreFolder(const std::string& path) {
        driver().host({{"openPanel", {path}}});
        press("settings", "ignoreList.add");
    }
    // A cache of three applications, 3 MB each.
    void fillCaches() {
        for (const char* name : {"Acme", "Bolt", "Cave"}) {
            disk.file(caches + name + "/data", 3'000'000);
        }
    }
};

TEST_F(ScreenReview, OneSafeRowLessIsNoPresetAndABoxFillsItsGroupAgain) {
    fillDisk();
    press("overview", "card.button");
    EXPECT_EQ(preset(), 0);
    press("sweepReview", "groups.rows.state", "logs");
    EXPECT_EQ(preset(), nullptr);
    EXPECT_EQ(group().at("state"), "mixed");
    EXPECT_EQ(group().at("size"), "5 MB");
    EXPECT_EQ(footer().at("size"), "3 MB");
    EXPECT_EQ(footer().at("count"), "1 item selected");
    press("sweepReview", "groups.state", "System Crumbs");
    EXPECT_EQ(preset(), 0);
    EXPECT_EQ(group().at("state"), "on");
    press("sweepReview", "groups.state", "System Crumbs");
    EXPECT_EQ(preset(), 2);
    EXPECT_EQ(group().at("state"), "off");
    EXPECT_EQ(footer().at("size"), "1 KB");
    EXPECT_EQ(footer().at("count"), "0 items selected");
    EXPECT_EQ(footer().at("actions").at(0).at("enabled"), false);
}

TEST_F(ScreenReview, ABoxOfAMixedGroupTakesItsReviewItemsToo) {
    disk.app("/Applications/Bolt.app", "com.bolt.Bolt");
    disk.file("/Users/sam/Downloads/Bolt.dmg", 2'000'000);
    disk.file("/Users/sam/Downloads/Thing.dmg", 5'000'000);
    press("overview", "card.button");
    EXPECT_EQ(group().at("label"), "Downloads");
    EXPECT_EQ(group().at("state"), "mixed");
    EXPECT_EQ(all(group().at("rows"), "badge").at(1).at("label"), "Review first");
    press("sweepReview", "groups.state", "Downloads");
    EXPECT_EQ(group().at("state"), "on");
    EXPECT_EQ(preset(), 1);
    EXPECT_EQ(footer().at("count"), "2 items selected");
}

TEST_F(ScreenReview, NothingButReviewItemsStartsAtNoneAndCanAllBeTaken) {
    disk.file("/Users/sam/Downloads/Thing.dmg", 5'000'000);
    press("overview", "card.button");
    EXPECT_EQ(preset(), 2);
    press("sweepReview", "preset", nullptr, 1);
    EXPECT_EQ(preset(), 1);
    EXPECT_EQ(footer().at("size"), "5 MB");
}

TEST_F(ScreenReview, NothingButSafeItemsReadsAsTheSafeOnes) {
    fillCaches();
    press("overview", "card.button");
    EXPECT_EQ(preset(), 0);
    press("sweepReview", "preset", nullptr, 1);
    EXPECT_EQ(preset(), 0);
}

TEST_F(ScreenReview, LooksWhileAScanRunsAndSaysWhereThereIsNothing) {
    holdScans();
    EXPECT_EQ(shown().at("message"), "Nothing to sweep right now.");
    beginPress("overview", "card.button");
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(shown().at("message"), "Looking for things to sweep…");
    EXPECT_EQ(shown().at("found"), "1 KB found");
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(shown().at("message"), "Nothing to sweep right now.");
}

TEST_F(ScreenReview, AProblemStandsInTheFooterUntilTheNextSweep) {
    disk.file(caches + "Bolt/data", 3'000'000);
    disk.file("/Users/sam/Library/Logs/old.log", 2'000'000);
    disk.host["immovable"] = {caches + "Bolt"};
    press("overview", "card.button");
    press("sweepReview", "footer.actions", 0);
    EXPECT_EQ(card().at("title"), "All swept! You freed 2 MB");
    EXPECT_EQ(footer().at("note"), "1 item couldn’t be removed. They may be in use.");
    EXPECT_EQ(footer().at("count"), "1 item selected");
    press("settings", "sweeping.trash", nullptr, false);
    EXPECT_EQ(footer().at("note"), "1 item couldn’t be removed. They may be in use.");
    EXPECT_EQ(footer().at("actions").at(0).at("label"), "Delete");
    driver().host({{"immovable", Json::array()}});
    press("sweepReview", "footer.actions", 0);
    EXPECT_EQ(footer().at("note"), "Deleted right away. This can’t be undone.");
    EXPECT_FALSE(disk.has(caches + "Bolt"));
}

TEST_F(ScreenReview, TheTrashSwitchChangesItsWordsAtOnceWithoutAScan) {
    fillDisk();
    press("overview", "card.button");
    const Json scanned = driver().get("scannedAt");
    EXPECT_EQ(footer().at("actions").at(0).at("label"), "Move to Trash");
    EXPECT_EQ(footer().at("note"), "Goes to the Trash. Nothing is permanently deleted.");
    press("settings", "sweeping.trash", nullptr, false);
    EXPECT_EQ(footer().at("actions").at(0).at("label"), "Delete");
    EXPECT_EQ(footer().at("note"), "Deleted right away. This can’t be undone.");
    EXPECT_EQ(driver().get("scannedAt"), scanned);
    EXPECT_EQ(driver().get("scanPhase"), "done");
}

TEST_F(ScreenReview, RowsStayOpenElsewhereAndThroughAScanButNotThroughARestart) {
    fillDisk();
    press("overview", "card.button");
    press("sweepReview", "groups.rows.open", "logs");
    press("overview", "card.scanAgain");
    EXPECT_EQ(group().at("rows").at(0).at("open"), false);
    EXPECT_EQ(group().at("rows").at(1).at("open"), true);
    EXPECT_EQ(group().at("rows").at(1).at("panel").at("title"), "What is this?");
    driver().call("relaunch");
    appear("sweepReview");
    EXPECT_EQ(group().at("rows").at(1).at("panel"), nullptr);
}

TEST_F(ScreenReview, AnIgnoredFolderTakesItsPartOutAndLeavesTheRowTicked) {
    fillCaches();
    press("overview", "card.button");
    EXPECT_EQ(group().at("rows").at(0).at("size"), "9 MB");
    ignoreFolder(caches + "Bolt");
    EXPECT_EQ(group().at("rows").at(0).at("size"), "6 MB");
    EXPECT_EQ(group().at("rows").at(0).at("state"), "on");
    EXPECT_EQ(footer().at("size"), "6 MB");
    // In place of one inside it a folder filters nothing before the next scan.
    ignoreFolder("/Users/sam/Library/Caches");
    EXPECT_EQ(all(screen("settings").at("ignoreList").at("rows"), "label"),
              Json::array({"~/Library/Caches"}));
    EXPECT_EQ(group().at("size"), "6 MB");
    press("overview", "card.scanAgain");
    EXPECT_EQ(shown().at("groups"), Json::array());
}

TEST_F(ScreenReview, AnIgnoredFolderTakesWholeRowsAndTheirTicksUntilTheNextScanWithoutIt) {
    fillDisk();
    press("overview", "card.button");
    ignoreFolder("/Users/sam/Library/Caches");
    EXPECT_EQ(all(group().at("rows"), "id"), Json::array({"logs"}));
    EXPECT_EQ(footer().at("count"), "1 item selected");
    ignoreFolder("/Users/sam/Library/Caches/Acme");
    EXPECT_EQ(screen("settings").at("ignoreList").at("rows").size(), 1U);
    press("settings", "ignoreList.rows.remove", "/Users/sam/Library/Caches");
    EXPECT_EQ(all(group().at("rows"), "id"), Json::array({"logs"}));
    press("overview", "card.scanAgain");
    EXPECT_EQ(all(group().at("rows"), "id"), Json::array({"caches", "logs"}));
}

}  // namespace
}  // namespace morvane::test
