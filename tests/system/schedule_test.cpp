// The schedule and the reminder.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Schedule : public SystemTest {
protected:
    void tick() { driver().call("autoScanTick"); }
    Json lastScan() { return driver().get("lastScanAt"); }
};

TEST_F(Schedule, ScansOnlyAfterOnboarding) {
    tick();
    EXPECT_EQ(lastScan(), nullptr);
    driver().call("finishOnboarding");
    tick();
    EXPECT_EQ(lastScan(), "2026-06-15T12:00:00.000Z");
}

TEST_F(Schedule, IsDueAfterAWeekToTheSecond) {
    driver().call("finishOnboarding");
    scan();
    driver().advance(604'799);
    tick();
    EXPECT_EQ(lastScan(), "2026-06-15T12:00:00.000Z");
    driver().advance(1);
    tick();
    EXPECT_EQ(lastScan(), "2026-06-22T12:00:00.000Z");
}

TEST_F(Schedule, OfAMonthIsThirtyDays) {
    driver().call("finishOnboarding");
    driver().set({{"schedule", "monthly"}});
    scan();
    driver().advance(2'591'999);
    tick();
    EXPECT_EQ(lastScan(), "2026-06-15T12:00:00.000Z");
    driver().advance(1);
    tick();
    EXPECT_EQ(lastScan(), "2026-07-15T12:00:00.000Z");
    driver().set({{"schedule", "off"}});
    driver().advance(99'999'999);
    tick();
    EXPECT_EQ(lastScan(), "2026-07-15T12:00:00.000Z");
}

TEST_F(Schedule, LeavesAUserInFrontOfResultsAlone) {
    driver().call("finishOnboarding");
    for (const std::string screen : {"sweep", "developer"}) {
        driver().set({{"selection", screen}});
        tick();
        EXPECT_EQ(lastScan(), nullptr);
    }
    driver().host({{"active", false}});
    tick();
    EXPECT_EQ(lastScan(), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(driver().get("selection"), "developer");
}

TEST_F(Schedule, LeavesASuccessCardUp) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    driver().call("finishOnboarding");
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    driver().advance(700'000);
    tick();
    EXPECT_EQ(lastScan(), "2026-06-15T12:00:00.000Z");
    driver().call("settleScanPhase");
    tick();
    EXPECT_EQ(lastScan(), "2026-06-23T14:26:40.000Z");
}

class Reminder : public SystemTest {
protected:
    // One file of 50 MB under enough names to count as so many times 50 MB.
    void fillCaches(int times) {
        for (; filled_ < times; ++filled_) {
            const std::string path =
                "/Users/sam/Library/Caches/com.a.App" + std::to_string(filled_) + "/data";
            if (filled_ == 0) {
                disk.file(path, 50'003'968);
            } else {
                disk.hardLink(path, "/Users/sam/Library/Caches/com.a.App0/data");
            }
        }
    }
    Json posted() { return driver().effects("notification"); }

private:
    int filled_ = 0;
};

TEST_F(Reminder, IsPostedWhenFiveGigabytesWaitAndTheUserIsElsewhere) {
    disk.host["active"] = false;
    disk.host["notifications"] = "provisional";
    fillCaches(99);
    scan();
    EXPECT_EQ(posted(), Json::array());
    EXPECT_EQ(driver().get("remindedAt"), nullptr);
    fillCaches(100);
    scan();
    EXPECT_EQ(posted(), Json::parse(R"([{"identifier":"ready-to-sweep",
        "title":"5.0 GB is ready to sweep",
        "body":"Open Morvane to review it. Everything goes to the Trash first."}])"));
    EXPECT_EQ(driver().get("remindedAt"), "2026-06-15T12:00:00.000Z");
    // No second one before a sweep.
    driver().advance(60);
    scan();
    EXPECT_EQ(posted(), Json::array());
    driver().call("sweep", {{"items", {"caches"}}});
    driver().call("restore", {{"entry", driver().get("history").at(0).at("id")}});
    driver().set({{"alwaysUseTrash", false}});
    scan();
    EXPECT_EQ(posted().at(0).at("body"), "Open Morvane to review it before anything is deleted.");
}

TEST_F(Reminder, IsNotPostedInFrontOrSwitchedOff) {
    disk.host["notifications"] = "authorized";
    fillCaches(101);
    scan();
    EXPECT_EQ(driver().get("remindedAt"), nullptr);
    driver().host({{"active", false}});
    driver().set({{"remindWhenReady", false}});
    driver().call("remindIfReady");
    EXPECT_EQ(driver().get("remindedAt"), nullptr);
    driver().set({{"remindWhenReady", true}});
    driver().call("remindIfReady");
    EXPECT_EQ(posted().size(), 1U);
}

TEST_F(Reminder, ThatTheUserDeclinedStillMovesItsDate) {
    disk.host["active"] = false;
    disk.host["notifications"] = "denied";
    fillCaches(101);
    scan();
    EXPECT_EQ(posted(), Json::array());
    EXPECT_EQ(driver().get("remindedAt"), "2026-06-15T12:00:00.000Z");
}

}  // namespace
}  // namespace morvane::test
