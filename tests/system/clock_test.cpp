// The virtual clock: it moves by `advance` and by sleeps alone, in whole nanoseconds.

#include <ctime>

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Clock : public SystemTest {
protected:
    // What the clock shows, told by the date of a file scan, which takes none of its time.
    std::string shown() {
        driver().call("scanFiles", {{"force", true}});
        return driver().get("filesScannedAt");
    }
};

TEST_F(Clock, StandsStillUntilItIsMoved) {
    EXPECT_EQ(shown(), "2026-06-15T12:00:00.000Z");
    scan();
    EXPECT_EQ(shown(), "2026-06-15T12:00:00.000Z");
    driver().advance(90.5);
    EXPECT_EQ(shown(), "2026-06-15T12:01:30.500Z");
    driver().advance(0);
    EXPECT_EQ(shown(), "2026-06-15T12:01:30.500Z");
    driver().advance(31'536'000);
    EXPECT_EQ(shown(), "2027-06-15T12:01:30.500Z");
}

TEST_F(Clock, KeepsFractionsOfAMillisecond) {
    for (int count = 0; count < 10; ++count) driver().advance(0.0001);
    EXPECT_EQ(shown(), "2026-06-15T12:00:00.001Z");
    for (int count = 0; count < 1000; ++count) driver().send({{"advance", 1e-6}});
    for (int count = 0; count < 1000; ++count) driver().answer();
    EXPECT_EQ(shown(), "2026-06-15T12:00:00.002Z");
}

TEST_F(Clock, TakesAnInstantWithAFractionAndAnOffset) {
    disk.host["now"] = "2026-06-15T14:30:00.25+02:00";
    EXPECT_EQ(shown(), "2026-06-15T12:30:00.250Z");
}

TEST_F(Clock, RefusesWhatCannotBeAdvanced) {
    for (const Json& seconds : {Json(-1), Json(-0.001), Json("1"), Json(nullptr), Json(1e300)}) {
        driver().error({{"advance", seconds}});
    }
    EXPECT_EQ(shown(), "2026-06-15T12:00:00.000Z");
}

TEST_F(Clock, IsTheRealOneWithoutAnInstant) {
    disk.host.erase("now");
    driver().error({{"advance", 1}});
    const auto real = [] {
        const std::time_t now = std::time(nullptr);
        std::tm parts{};
        char text[32];
        ::gmtime_r(&now, &parts);
        return std::string(text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts));
    };
    const std::string before = real();
    const std::string between = shown().substr(0, before.size());
    EXPECT_LE(before, between);
    EXPECT_LE(between, real());
}

TEST_F(Clock, JumpsToWhatIsDueWhenNothingButSleepsIsLeft) {
    disk.app("/Applications/Stay.app", "com.a.stay");
    disk.host["runningApplications"] = {
        {{"bundleIdentifier", "com.a.stay"}, {"refusesToQuit", true}}};
    driver().call("scanApps", {{"force", true}});
    driver().call("uninstall", {{"app", "/Applications/Stay.app"}});
    EXPECT_EQ(shown(), "2026-06-15T12:00:10.000Z");
    EXPECT_EQ(driver().get("uninstallResult"),
              Json({{"failed", "Stay didn’t quit. Quit it yourself, then try again."}}));
}

TEST_F(Clock, ApplicationsQuitAfterTheirSecondsOnIt) {
    disk.app("/Applications/Slow.app", "com.a.slow");
    disk.host["runningApplications"] = {{{"bundleIdentifier", "com.a.slow"}, {"quitsAfter", 3.1}}};
    driver().call("scanApps", {{"force", true}});
    driver().call("uninstall", {{"app", "/Applications/Slow.app"}});
    EXPECT_EQ(driver().get("uninstallResult").at("removed").at("name"), "Slow");
    // Looked at every 0.2 seconds.
    EXPECT_EQ(shown(), "2026-06-15T12:00:03.200Z");
}

TEST_F(Clock, RunsEverythingThatFallsDueInOrder) {
    driver().host({{"fullDiskAccess", "denied"}});
    driver().call("refreshPermissions");
    driver().begin("watchForAccess");
    driver().advance(299);
    EXPECT_EQ(driver().get("tasks"), Json::array({"accessWatchTask"}));
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
    driver().host({{"fullDiskAccess", "granted"}});
    driver().advance(0.999);
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
    driver().advance(0.001);
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
}

TEST_F(Clock, StartsNoneOfTheLoopsThatBelongToTheWindow) {
    driver().call("finishOnboarding");
    driver().advance(30 * 86400);
    EXPECT_EQ(driver().get("lastScanAt"), nullptr);
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 0);
    EXPECT_EQ(driver().get("tasks"), Json::array());
    EXPECT_EQ(driver().effects(), Json::array());
}

TEST_F(Clock, AdvanceMovesOnWhileATaskIsInTheBackground) {
    disk.gate("gate");
    disk.makeFolder("/Applications/Xcode.app");
    disk.tool("/usr/bin/xcrun", R"(read line < "$MORVANE_DISK/gate"; echo '{}')");
    driver().begin("startScan", {{"showOverview", true}});
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Caches");
    driver().advance(0.7);
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Logs");
    driver().advance(0.699);
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Logs");
    driver().advance(0.001);
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Developer/Xcode/DerivedData");
    driver().advance(5.6);
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Application Support/MobileSync/Backup");
    driver().advance(0.7);
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Caches");
    TestDisk::open(gate);
    driver().waitForAll();
    // The tool's own time counts for nothing.
    EXPECT_EQ(driver().get("scannedAt"), "2026-06-15T12:00:07.700Z");
    EXPECT_EQ(driver().get("scanLocation"), "~/Library/Caches");
}

TEST_F(Clock, StandsStillWhileAToolWorksWhoeverStartedIt) {
    disk.gate("gate");
    disk.tool("/usr/sbin/diskutil", R"(read line < "$MORVANE_DISK/gate")");
    driver().host({{"fullDiskAccess", "denied"}});
    driver().call("refreshPermissions");
    driver().begin("watchForAccess");
    driver().begin("refreshDisk");
    const int gate = disk.waitAtGate("gate");
    driver().send({{"wait", true}});
    TestDisk::open(gate);
    EXPECT_EQ(driver().answer(), Json({{"result", nullptr}}));
    EXPECT_EQ(shown(), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(driver().get("tasks"), Json::array({"accessWatchTask"}));
}

}  // namespace
}  // namespace morvane::test
