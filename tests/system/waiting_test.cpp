// When an answer comes: after all work that a call started, after its synchronous part, or after
// everything.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Waiting : public SystemTest {
protected:
    Waiting() {
        disk.gate("gate");
        disk.makeFolder("/Applications/Xcode.app");
        disk.tool("/usr/bin/xcrun", R"(read line < "$MORVANE_DISK/gate"; echo '{}')");
    }
};

TEST_F(Waiting, ACallIsAnsweredWhenItsWorkHasEnded) {
    driver().send({{"call", "startScan"}, {"args", {{"showOverview", true}}}});
    TestDisk::open(disk.waitAtGate("gate"));
    EXPECT_EQ(driver().answer(), Json({{"result", nullptr}}));
    EXPECT_EQ(driver().get("scanPhase"), "empty");
    EXPECT_EQ(driver().get("tasks"), Json::array());
    EXPECT_EQ(driver().get("finishedCategories"),
              Json::array({"backups", "crumbs", "developer", "largeFiles", "leftovers"}));
}

TEST_F(Waiting, WithoutWaitingItIsAnsweredAfterTheSynchronousPart) {
    driver().begin("startScan", {{"showOverview", true}});
    EXPECT_EQ(driver().get("scanPhase"), "scanning");
    const int gate = disk.waitAtGate("gate");
    const Json tasks = driver().get("tasks");
    EXPECT_NE(std::find(tasks.begin(), tasks.end(), "scanTask"), tasks.end());
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(driver().get("scanPhase"), "empty");
}

TEST_F(Waiting, WorkGoesOnBetweenRequests) {
    driver().begin("startScan", {{"showOverview", true}});
    TestDisk::open(disk.waitAtGate("gate"));
    while (driver().get("scanPhase") == "scanning") {
    }
    EXPECT_EQ(driver().get("scanPhase"), "empty");
}

TEST_F(Waiting, ACallDoesNotWaitForWorkThatAnotherStarted) {
    driver().begin("scanDeveloper");
    const int gate = disk.waitAtGate("gate");
    driver().call("scanFiles", {{"force", true}});
    driver().call("refreshDisk");
    EXPECT_EQ(driver().get("isScanningDeveloper"), true);
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(driver().get("isScanningDeveloper"), false);
}

TEST_F(Waiting, WaitingForAllIncludesWhatWasCancelled) {
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    driver().call("cancelScan");
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    driver().send({{"wait", true}});
    TestDisk::open(gate);
    EXPECT_EQ(driver().answer(), Json({{"result", nullptr}}));
    EXPECT_EQ(driver().get("isScanningDeveloper"), false);
    EXPECT_EQ(driver().get("scannedAt"), nullptr);
}

TEST_F(Waiting, TheWatchForAccessIsNotWaitedFor) {
    disk.host["fullDiskAccess"] = "denied";
    driver().begin("watchForAccess");
    driver().waitForAll();
    driver().waitForAll();
    EXPECT_EQ(driver().get("tasks"), Json::array({"accessWatchTask"}));
}

TEST_F(Waiting, AWatchThatACallStartedIsWaitedForWithoutTakingItsTime) {
    disk.host["fullDiskAccess"] = "denied";
    driver().call("watchForAccess");
    EXPECT_EQ(driver().get("tasks"), Json::array());
    driver().call("scanFiles", {{"force", true}});
    EXPECT_EQ(driver().get("filesScannedAt"), "2026-06-15T12:05:00.000Z");
}

TEST_F(Waiting, WorkThatWorkStartedIsWaitedForToo) {
    disk.host["fullDiskAccess"] = "denied";
    disk.file("/Users/sam/Documents/data", 8192);
    driver().set({{"selection", "large"}});
    driver().host({{"fullDiskAccess", "granted"}});
    driver().call("refreshPermissions");
    EXPECT_EQ(driver().get("disk").at("isComplete"), true);
    EXPECT_EQ(driver().get("disk").at("measured").at("documents"), 8192);
    EXPECT_EQ(driver().get("filesScannedAt"), "2026-06-15T12:00:00.000Z");
}

TEST_F(Waiting, AFunctionHasNoAnswerBeforeItsValue) {
    disk.file("/Users/sam/data", 4096);
    EXPECT_EQ(driver().begin("measure", {{"url", "/Users/sam"}}),
              Json({{"bytes", 4096}, {"newest", "2026-03-07T12:00:00.000Z"}}));
    EXPECT_EQ(driver().begin("sizeText", {{"mb", 12}}), "12 MB");
}

}  // namespace
}  // namespace morvane::test
