// A relaunch and the end of input: what is finished first, what is dropped, what is never written.

#include <unistd.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Ending : public SystemTest {
protected:
    Ending() {
        disk.gate("gate");
        disk.tool("/usr/local/bin/docker", R"(case "$1" in
system) echo '{"Type":"Images","Reclaimable":"2GB"}' ;;
*) read line < "$MORVANE_DISK/gate" ;;
esac)");
        disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    }
    // Xcode's tool waits at the gate.
    void hangTheDeveloperScan() {
        disk.makeFolder("/Applications/Xcode.app");
        disk.tool("/usr/bin/xcrun", R"(read line < "$MORVANE_DISK/gate"; echo '{}')");
    }
    // Whether nobody waits at the gate any more.
    static bool hasLeft(int gate) {
        const bool nobody = ::write(gate, "\n", 1) < 0;
        ::close(gate);
        return nobody;
    }
};

TEST_F(Ending, ARelaunchKeepsWhatIsStoredAndForgetsTheRest) {
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    driver().set({{"schedule", "monthly"}, {"appQuery", "a"}});
    const Json history = driver().get("history");
    driver().call("relaunch");
    EXPECT_EQ(driver().get("history"), history);
    EXPECT_EQ(driver().get("schedule"), "monthly");
    EXPECT_EQ(driver().get("lastScanAt"), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(driver().get("lastSweptAt"), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(driver().get("scannedAt"), nullptr);
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    EXPECT_EQ(driver().get("freedMB"), 0);
    EXPECT_EQ(driver().get("appQuery"), "");
    EXPECT_EQ(driver().get("devSections"), nullptr);
}

TEST_F(Ending, ARelaunchProbesTheAccessAgain) {
    driver().host({{"fullDiskAccess", "denied"}});
    driver().call("relaunch");
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
}

TEST_F(Ending, ARelaunchFinishesASweepUnderWayAndRecordsIt) {
    scan();
    driver().begin("sweep", {{"items", {"caches", "docker:images"}}});
    const int gate = disk.waitAtGate("gate");
    driver().send({{"call", "relaunch"}});
    TestDisk::open(gate);
    EXPECT_EQ(driver().answer(), Json({{"result", nullptr}}));
    ASSERT_EQ(driver().get("history").size(), 1U);
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "2 items · 2.0 GB");
    EXPECT_EQ(driver().get("history").at(0).at("trashed"),
              Json({{"/Users/sam/Library/Caches/com.a.One", "/Users/sam/.Trash/com.a.One"}}));
    EXPECT_EQ(driver().get("isSweeping"), false);
}

TEST_F(Ending, TheEndOfInputFinishesASweepUnderWayAndRecordsIt) {
    scan();
    driver().begin("sweep", {{"items", {"docker:images", "caches"}}});
    const int gate = disk.waitAtGate("gate");
    driver().closeInput();
    TestDisk::open(gate);
    EXPECT_EQ(endDriver(), 0);
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "2 items · 2.0 GB");
    EXPECT_TRUE(disk.has("/Users/sam/.Trash/com.a.One"));
}

TEST_F(Ending, ARelaunchDoesNotWaitForTheToolsOfAScan) {
    hangTheDeveloperScan();
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    driver().call("relaunch");
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    EXPECT_EQ(driver().get("tasks"), Json::array());
    EXPECT_EQ(driver().get("isScanningDeveloper"), false);
    ::close(gate);
    driver().waitForAll();
    // What the dropped scan found or finished is never written.
    EXPECT_EQ(driver().get("crumbItems"), Json::array());
    EXPECT_EQ(driver().get("lastScanAt"), nullptr);
    driver().call("relaunch");
    EXPECT_EQ(driver().get("lastScanAt"), nullptr);
}

TEST_F(Ending, TheEndOfInputEndsTheToolsThatStillRun) {
    hangTheDeveloperScan();
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(endDriver(), 0);
    EXPECT_TRUE(hasLeft(gate));
    EXPECT_EQ(driver().get("lastScanAt"), nullptr);
}

TEST_F(Ending, TheEndOfInputEndsAToolThatIsDeafToAPoliteRequest) {
    disk.makeFolder("/Applications/Xcode.app");
    disk.tool("/usr/bin/xcrun", R"(trap '' TERM INT HUP; read line < "$MORVANE_DISK/gate")");
    driver().begin("scanDeveloper");
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(endDriver(), 0);
    EXPECT_TRUE(hasLeft(gate));
}

TEST_F(Ending, ADroppedMeasuringRunStoresNothing) {
    disk.tool("/usr/sbin/diskutil", R"(read line < "$MORVANE_DISK/gate")");
    driver().begin("refreshDisk");
    const int gate = disk.waitAtGate("gate");
    driver().call("relaunch");
    ::close(gate);
    driver().waitForAll();
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 0);
    driver().call("relaunch");
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 0);
}

TEST_F(Ending, AnUninstallUnderWayIsFinishedFirst) {
    disk.app("/Applications/Slow.app", "com.a.slow");
    disk.host["runningApplications"] = {{{"bundleIdentifier", "com.a.slow"}, {"quitsAfter", 2}}};
    driver().call("scanApps", {{"force", true}});
    driver().begin("uninstall", {{"app", "/Applications/Slow.app"}});
    EXPECT_EQ(driver().get("isUninstalling"), true);
    driver().call("relaunch");
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "Uninstalled Slow · 106 KB");
    EXPECT_FALSE(disk.has("/Applications/Slow.app"));
}

TEST_F(Ending, ManyRelaunchesInARowDoNoHarm) {
    hangTheDeveloperScan();
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    for (int count = 0; count < 20; ++count) driver().call("relaunch");
    driver().set({{"showInMenuBar", false}});
    ::close(gate);
    EXPECT_EQ(endDriver(), 0);
    EXPECT_EQ(driver().get("showInMenuBar"), false);
}

TEST_F(Ending, AKilledDriverLeavesWhatItAnswered) {
    driver().set({{"schedule", "off"}});
    driver().kill();
    DriverClient next(disk.folder());
    EXPECT_EQ(next.get("schedule"), "off");
}

}  // namespace
}  // namespace morvane::test
