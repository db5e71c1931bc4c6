// What the Overview of a program on a disk says of what a scan found.

#include <algorithm>

#include "system/screen_disk.h"

namespace morvane::test {
namespace {

class ScreenOverview : public OnScreen {
protected:
    static inline const std::string library = "/Users/sam/Library/";
    static inline const std::string backups = library + "Application Support/MobileSync/Backup/";

    void pressScan() {
        press("overview", card().at("kind") == "done" ? "card.scanAgain" : "card.button");
    }
    // What the card of a category says after a scan.
    Json found(std::size_t category) {
        pressScan();
        return card().at("cards").at(category);
    }
    void backUp(const std::string& folder, const std::string& device) {
        disk.text(backups + folder + "/Info.plist",
                  R"(<?xml version="1.0"?><plist version="1.0"><dict><key>Device Name</key>)"
                  "<string>" +
                      device + "</string></dict></plist>");
    }
};

TEST_F(ScreenOverview, BackupsThatHaveFinishedNeedAccessWhileOthersAreStillLookedFor) {
    disk.host["fullDiskAccess"] = "denied";
    holdScans();
    driver().call("finishOnboarding");
    beginPress("overview", "card.button");
    const int gate = disk.waitAtGate("gate");
    Json finished;
    do {
        finished = driver().get("finishedCategories");
    } while (std::find(finished.begin(), finished.end(), "backups") == finished.end());
    EXPECT_EQ(card().at("rows").at(4),
              Json::parse(R"({"id": "backups", "label": "iPhone backups", "finished": true,
                              "value": "Needs access"})"));
    EXPECT_EQ(driver().get("categoryMB").at("backups"), 0.0);
    EXPECT_EQ(card().at("rows").at(1),
              Json::parse(R"({"id": "developer", "label": "Developer files", "finished": false,
                              "value": "Looking…"})"));
    TestDisk::open(gate);
    driver().waitForAll();
}

TEST_F(ScreenOverview, LeftoversSpeakOfAnAppOrCountTheItems) {
    disk.file(caches + "Bolt/data", 3'000'000);
    EXPECT_EQ(found(2).at("text"), "No files left behind by apps you’ve deleted.");
    disk.file(library + "Application Support/com.acme.Editor/data", 2'000'000);
    EXPECT_EQ(found(2).at("text"), "Files left behind by an app you’ve already deleted.");
    // A further folder of the same identifier joins its item; one of another identifier counts as
    // an app of its own, though one app made both.
    disk.file(library + "Logs/com.acme.Editor/data", 2'000'000, 1);
    EXPECT_EQ(found(2).at("text"), "Files left behind by an app you’ve already deleted.");
    EXPECT_EQ(found(2).at("amount"), "4 MB");
    disk.file(library + "Application Support/com.acme.Editor.Helper/data", 2'000'000);
    EXPECT_EQ(found(2).at("text"), "Files left behind by 2 apps you’ve already deleted.");
}

TEST_F(ScreenOverview, BackupsAreNamedWhereThereIsOneAndCountedWhereThereAreMore) {
    disk.file(caches + "Bolt/data", 3'000'000);
    EXPECT_EQ(found(4).at("text"), "No iPhone or iPad backups on this Mac.");
    backUp("a", "Sam’s iPhone");
    EXPECT_EQ(found(4).at("text"), "One backup: Sam’s iPhone.");
    backUp("b", "Sam’s iPad");
    EXPECT_EQ(found(4).at("text"), "2 device backups. Check which devices you still have.");
    EXPECT_EQ(found(4).at("call"), "Review");
    driver().host({{"fullDiskAccess", "denied"}});
    appear("settings");
    EXPECT_EQ(found(4).at("text"),
              "Allow Full Disk Access so Morvane can look for device backups.");
    EXPECT_EQ(found(4).at("call"), "Allow Access");
}

TEST_F(ScreenOverview, SaysButWhereNothingIsSafeAndAnotherWhereSomethingIs) {
    disk.file("/Users/sam/Downloads/Thing.dmg", 5'000'000);
    pressScan();
    EXPECT_EQ(card().at("title"), "Nothing needs sweeping right now");
    EXPECT_EQ(card().at("text"), "But 5 MB is worth a look. Nothing is removed until you choose.");
    disk.remove("/Users/sam/Downloads/Thing.dmg");
    disk.file(caches + "Bolt/data", 3'000'000);
    pressScan();
    EXPECT_EQ(card().at("title"), "3 MB is safe to sweep right now");
    EXPECT_EQ(card().at("text"),
              "Another 1 KB is worth a look. Nothing is removed until you choose.");
}

TEST_F(ScreenOverview, TheCardOfLargeFilesAlwaysSetsTheFiltersBack) {
    fillDisk();
    pressScan();
    driver().set({{"fileMinMB", 500.0}, {"fileMinMonths", 24}, {"fileKind", "video"}});
    press("overview", "card.cards", "largeFiles");
    EXPECT_EQ(driver().ask({{"get", {"fileMinMB", "fileMinMonths", "fileKind", "selection"}}}),
              Json::parse(R"({"fileMinMB": 100.0, "fileMinMonths": 12, "fileKind": null,
                              "selection": "large"})"));
    press("overview", "card.cards", "leftovers");
    EXPECT_EQ(driver().get("selection"), "sweep");
    EXPECT_EQ(driver().effects(), Json::array());
}

TEST_F(ScreenOverview, NeverTellsANegativeUse) {
    disk.host["volume"] = {{"name", "Small"},
                           {"total", 100'000'000'000},
                           {"available", 80'000'000'000},
                           {"availableForImportantUsage", 120'000'000'000}};
    appear("shell");
    const Json shown = screen("overview").at("disk");
    EXPECT_EQ(shown.at("name"), "Small");
    EXPECT_EQ(shown.at("used"), "0 GB used of 100 GB");
    EXPECT_EQ(shown.at("free"), "80 GB free");
    EXPECT_EQ(shown.at("segments"), Json::parse(R"([{"id": "purgeable", "label": "Purgeable",
        "size": "40 GB", "color": "diskSystem", "fraction": 0.4}])"));
    EXPECT_EQ(shown.at("legendFree"), Json::parse(R"({"label": "Free", "size": "80 GB"})"));
}

TEST_F(ScreenOverview, NotesTheLackOfAccessOnceTheDiskIsMeasured) {
    disk.host["fullDiskAccess"] = "denied";
    EXPECT_EQ(screen("overview").at("disk").at("note"), nullptr);
    appear("shell");
    EXPECT_EQ(screen("overview").at("disk").at("note").at("text"),
              "Photos and Documents are counted in Other until Morvane has Full Disk Access.");
    driver().effects();
    beginPress("overview", "disk.note.button");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"openURL":
        "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"}])"));
    driver().host({{"fullDiskAccess", "granted"}});
    driver().advance(1);
    driver().waitForAll();
    EXPECT_EQ(screen("overview").at("disk").at("note"), nullptr);
}

TEST_F(ScreenOverview, TellsWhenTheLastSweepWasByTheDay) {
    fillDisk();
    EXPECT_EQ(screen("overview").at("lastSwept"), "Not swept yet");
    pressScan();
    press("sweepReview", "footer.actions", 0);
    EXPECT_EQ(screen("overview").at("lastSwept"), "Last swept today");
    driver().advance(86400);
    EXPECT_EQ(screen("overview").at("lastSwept"), "Last swept yesterday");
    driver().call("relaunch");
    driver().advance(86400 * 6);
    EXPECT_EQ(screen("overview").at("lastSwept"), "Last swept last week");
}

}  // namespace
}  // namespace morvane::test
