// The whole scan: its phases, what it chooses, what stopping it leaves.

#include "system/system_test.h"

namespace morvane::test {
namespace {

using Scan = SystemTest;
using BigScan = BigFilesTest;

TEST_F(Scan, EndsInDoneWithTheSafeItemsChosen) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    disk.file("/Users/sam/Downloads/Thing 2.dmg", 4096);
    disk.file("/Users/sam/Library/Developer/Xcode/DerivedData/App/data", 2'000'000);
    disk.file("/Users/sam/Library/Developer/Xcode/Archives/day/A.xcarchive/data", 4096);
    driver().set({{"selection", "settings"}});
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "done");
    EXPECT_EQ(driver().get("selection"), "overview");
    EXPECT_EQ(driver().get("scannedAt"), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(driver().get("lastScanAt"), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(all(driver().get("sweepItems"), "id"), Json::array({"caches", "otherInstallers"}));
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"caches"}));
    EXPECT_EQ(driver().get("activePreset"), "safe");
    EXPECT_EQ(driver().get("safeMB"), 0.008192);
    EXPECT_EQ(driver().get("devSelection"),
              Json::array({"dd:/Users/sam/Library/Developer/Xcode/DerivedData/App"}));
    EXPECT_EQ(all(driver().get("sweepGroups"), "name"),
              Json::array({"System Crumbs", "Downloads"}));
    EXPECT_EQ(all(driver().get("sweepGroups"), "icon"),
              Json::array({"sparkles", "arrow.down.to.line"}));
    EXPECT_NEAR(driver().get("categoryMB").at("crumbs"), 0.012288, 1e-12);
    EXPECT_NEAR(driver().get("foundSoFarMB"), 0.012288 + 2.002944 + 0.004096, 1e-9);
}

TEST_F(Scan, LeavesTheUserWhereTheyAreUnlessAskedToShow) {
    driver().set({{"selection", "settings"}});
    driver().call("startScan", {{"showOverview", false}});
    EXPECT_EQ(driver().get("selection"), "settings");
}

TEST_F(Scan, OfNothingEndsInEmpty) {
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "empty");
    EXPECT_EQ(driver().get("devSections"), Json::array());
    EXPECT_EQ(driver().get("activePreset"), "nothing");
}

TEST_F(Scan, WithReviewItemsAloneEndsInDoneWithNothingChosen) {
    disk.file("/Users/sam/Downloads/Thing 2.dmg", 4096);
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "done");
    EXPECT_EQ(driver().get("sweepSelection"), Json::array());
    EXPECT_EQ(driver().get("activePreset"), "nothing");
    driver().call("applyPreset", {{"preset", "all"}});
    EXPECT_EQ(driver().get("activePreset"), "all");
    driver().call("applyPreset", {{"preset", "nothing"}});
    EXPECT_EQ(driver().get("sweepSelection"), Json::array());
}

TEST_F(Scan, WithoutAccessReportsDownloadsAndBackupsAsEmpty) {
    disk.host["fullDiskAccess"] = "denied";
    disk.file("/Users/sam/Downloads/Thing 2.dmg", 4096);
    disk.file("/Users/sam/Library/Application Support/MobileSync/Backup/b/data", 4096);
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "empty");
    EXPECT_EQ(driver().get("finishedCategories"),
              Json::array({"backups", "crumbs", "developer", "largeFiles", "leftovers"}));
}

TEST_F(Scan, GroupsAreCheckedAsAWhole) {
    disk.app("/Applications/Thing.app", "com.a.thing");
    disk.file("/Users/sam/Downloads/Thing 2.dmg", 4096);
    disk.file("/Users/sam/Downloads/Other 2.dmg", 4096);
    scan();
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"installers"}));
    driver().call("toggleGroup", {{"group", "Downloads"}, {"state", "mixed"}});
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"installers", "otherInstallers"}));
    driver().call("toggleGroup", {{"group", "Downloads"}, {"state", "on"}});
    EXPECT_EQ(driver().get("sweepSelection"), Json::array());
    driver().call("toggleGroup", {{"group", "Downloads"}, {"state", "off"}});
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"installers", "otherInstallers"}));
    EXPECT_EQ(all(driver().get("selectedSweepItems"), "id"),
              Json::array({"installers", "otherInstallers"}));
}

class StoppedScan : public SystemTest {
protected:
    StoppedScan() {
        disk.gate("gate");
        disk.makeFolder("/Applications/Xcode.app");
        disk.tool("/usr/bin/xcrun", R"(read line < "$MORVANE_DISK/gate"; echo '{}')");
        disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    }
};

TEST_F(StoppedScan, BeforeAnyEndedReturnsToIdle) {
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    const auto finished = [&] { return driver().get("finishedCategories").size(); };
    while (finished() < 4) {
    }
    EXPECT_EQ(driver().get("scanPhase"), "scanning");
    EXPECT_GT(driver().get("foundSoFarMB"), 0.0);
    driver().call("cancelScan");
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    EXPECT_EQ(finished(), 0U);
    EXPECT_EQ(driver().get("scannedAt"), nullptr);
    EXPECT_EQ(all(driver().get("crumbItems"), "id"), Json::array({"caches"}));
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    EXPECT_EQ(driver().get("devSections"), nullptr);
    EXPECT_EQ(driver().get("isScanningDeveloper"), false);
}

TEST_F(StoppedScan, AfterOneThatEndedReturnsToItsPhaseAndDate) {
    driver().begin("startScan", {{"showOverview", true}});
    TestDisk::open(disk.waitAtGate("gate"));
    driver().waitForAll();
    driver().advance(60);
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    driver().call("cancelScan");
    EXPECT_EQ(driver().get("scanPhase"), "done");
    EXPECT_EQ(driver().get("scannedAt"), "2026-06-15T12:00:00.000Z");
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(driver().get("lastScanAt"), "2026-06-15T12:00:00.000Z");
}

TEST_F(StoppedScan, ByANewOneWaitsForTheDeveloperScanAlreadyAtWork) {
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    driver().advance(2.1);
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Application Support");
    driver().begin("startScan", {{"showOverview", true}});
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Caches");
    driver().send({{"wait", true}});
    TestDisk::open(gate);
    driver().answer();
    EXPECT_EQ(driver().get("scanPhase"), "done");
    // The cancelled run published no developer result and the new one found none to report.
    EXPECT_EQ(driver().get("devSections"), nullptr);
    EXPECT_EQ(driver().get("finishedCategories"),
              Json::array({"backups", "crumbs", "largeFiles", "leftovers"}));
}

TEST_F(BigScan, OldLargeFilesAloneAreEnoughForDone) {
    disk.file("/Users/sam/Movies/old.mov", 150'000'000, 400);
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "done");
    EXPECT_NEAR(driver().get("categoryMB").at("largeFiles"), 150.0, 0.01);
}

TEST_F(BigScan, YoungLargeFilesEndInEmptyAndAreListedAllTheSame) {
    disk.file("/Users/sam/Movies/young.mov", 150'000'000, 350);
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "empty");
    EXPECT_EQ(all(driver().get("files"), "url"), Json::array({"/Users/sam/Movies/young.mov"}));
}

TEST_F(BigScan, ItsFileScanRunsOnAfterAStop) {
    disk.file("/Users/sam/Movies/young.mov", 150'000'000, 350);
    driver().begin("startScan", {{"showOverview", true}});
    driver().call("cancelScan");
    driver().waitForAll();
    EXPECT_EQ(driver().get("files").size(), 1U);
    EXPECT_EQ(driver().get("isScanningFiles"), false);
}

}  // namespace
}  // namespace morvane::test
