// The frame, the sidebar and the Overview of a program on a disk.

#include "system/screen_disk.h"

namespace morvane::test {
namespace {

using ScreenShell = OnScreen;

TEST_F(ScreenShell, BeforeOnboardingOnlyTheAboutWindowAndUpdatesCanBeAskedFor) {
    disk.host["updates"] = {{"canCheck", true}};
    for (const char* command : {"settings", "scanNow", "review"}) {
        EXPECT_EQ(driver().error(pressing("shell", "menus.items", command)),
                  "the control \"menus.items\" is not enabled");
    }
    EXPECT_EQ(screen("shell").at("content"), "onboarding");
    EXPECT_EQ(screen("shell").at("windowTitle"), "Morvane");
    press("shell", "menus.items", "about");
    press("shell", "menus.items", "checkForUpdates");
    EXPECT_EQ(driver().effects(),
              Json::parse(R"([{"openWindow": "about"}, {"checkForUpdates": true}])"));
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    driver().call("finishOnboarding");
    press("shell", "menus.items", "review");
    EXPECT_EQ(screen("shell").at("windowTitle"), "Sweep");
}

TEST_F(ScreenShell, WhetherUpdatesCanBeCheckedForIsFollowedAtOnce) {
    disk.host["updates"] = {{"canCheck", true}, {"checks", true}, {"downloads", true}};
    EXPECT_EQ(screen("settings").at("updates").at("button").at("enabled"), true);
    EXPECT_EQ(screen("settings").at("updates").at("download").at("on"), true);
    driver().host({{"updates", {{"canCheck", false}}}});
    EXPECT_EQ(screen("settings").at("updates").at("button").at("enabled"), false);
    EXPECT_EQ(screen("shell").at("menus").at(0).at("items").at(1).at("enabled"), false);
    driver().error(pressing("shell", "menus.items", "checkForUpdates"));
    driver().error(pressing("settings", "updates.button"));
    EXPECT_EQ(screen("settings").at("updates").at("check").at("on"), true);
}

TEST_F(ScreenShell, AppearingMeasuresTheDiskOnceAndScansNothing) {
    EXPECT_EQ(screen("sidebar").at("disk").at("free"), "0 GB free");
    EXPECT_EQ(screen("sidebar").at("disk").at("fraction"), 0.0);
    appear("shell");
    EXPECT_EQ(screen("sidebar").at("disk").at("free"), "100 GB free");
    EXPECT_EQ(screen("sidebar").at("disk").at("fraction"), 0.8);
    EXPECT_EQ(screen("overview").at("disk").at("used"), "360 GB used of 500 GB");
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    driver().host({{"volume", {{"total", 500'000'000'000}, {"available", 50'000'000'000}}}});
    appear("shell");
    EXPECT_EQ(screen("sidebar").at("disk").at("free"), "100 GB free");
    becomeActive();
    EXPECT_EQ(screen("sidebar").at("disk").at("free"), "50 GB free");
    EXPECT_EQ(screen("shell").at("menuBarExtra").at("label"), "50 GB");
}

TEST_F(ScreenShell, TheSidebarCallsTheDiskByItsFixedName) {
    disk.host["volume"]["name"] = "Elsewhere";
    appear("shell");
    EXPECT_EQ(screen("sidebar").at("disk").at("name"), "Macintosh HD");
    EXPECT_EQ(screen("overview").at("disk").at("name"), "Elsewhere");
}

TEST_F(ScreenShell, WithoutASelectionTheOverviewIsOnView) {
    driver().call("finishOnboarding");
    driver().set({{"selection", nullptr}});
    EXPECT_EQ(screen("shell").at("windowTitle"), "Overview");
    EXPECT_EQ(screen("sidebar").at("sections").at(0).at("rows").at(0).at("selected"), true);
}

TEST_F(ScreenShell, TheMenuBarExtraComesBackWithoutARestart) {
    press("settings", "sweeping.menuBar", nullptr, false);
    EXPECT_EQ(screen("shell").at("menuBarExtra").at("visible"), false);
    driver().call("relaunch");
    EXPECT_EQ(screen("shell").at("menuBarExtra").at("visible"), false);
    press("settings", "sweeping.menuBar", nullptr, true);
    EXPECT_EQ(screen("shell").at("menuBarExtra").at("visible"), true);
}

TEST_F(ScreenShell, AScanIsWatchedAndStopped) {
    fillDisk();
    holdScans();
    driver().call("finishOnboarding");
    beginPress("shell", "menus.items", "scanNow");
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(card().at("kind"), "scanning");
    EXPECT_EQ(card().at("rows").at(1).at("value"), "Looking…");
    EXPECT_EQ(card().at("location"), "~/Library/Caches");
    press("overview", "card.button");
    EXPECT_EQ(card().at("kind"), "idle");
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(card().at("kind"), "idle");
    EXPECT_EQ(driver().get("scannedAt"), nullptr);
}

TEST_F(ScreenShell, WithoutAccessTheBackupsAskForIt) {
    disk.host["fullDiskAccess"] = "denied";
    fillDisk();
    press("overview", "card.button");
    EXPECT_EQ(card().at("cards").at(4).at("call"), "Allow Access");
    driver().effects();
    beginPress("overview", "card.cards", "backups");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"openURL":
        "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"}])"));
    EXPECT_EQ(driver().get("selection"), "overview");
    EXPECT_EQ(driver().get("tasks"), Json::array({"accessWatchTask"}));
    driver().host({{"fullDiskAccess", "granted"}});
    driver().advance(1);
    EXPECT_EQ(card().at("cards").at(4).at("call"), "Review");
    EXPECT_EQ(driver().effects("activate"), Json::array({true}));
}

TEST_F(ScreenShell, TheReviewScansOnAppearingOnceAndStaysOnView) {
    fillDisk();
    driver().call("finishOnboarding");
    press("sidebar", "sections.rows", "sweep");
    EXPECT_EQ(screen("sweepReview").at("groups"), Json::array());
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    appear("sweepReview");
    EXPECT_EQ(screen("sweepReview").at("found"), "10 MB found");
    EXPECT_EQ(driver().get("selection"), "sweep");
    const Json scanned = driver().get("scannedAt");
    driver().advance(60);
    appear("sweepReview");
    EXPECT_EQ(driver().get("scannedAt"), scanned);
}

}  // namespace
}  // namespace morvane::test
