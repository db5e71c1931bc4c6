// The settings of a program on a disk.

#include "system/screen_disk.h"

namespace morvane::test {
namespace {

class ScreenSettings : public OnScreen {
protected:
    Json shown() { return screen("settings"); }
    Json entry(std::size_t index = 0) { return shown().at("history").at("rows").at(index); }
    Json folder(std::size_t index = 0) { return shown().at("ignoreList").at("rows").at(index); }
    void sweepCaches() {
        disk.file(caches + "com.a.One/data", 3'000'000);
        press("overview", "card.button");
        press("sweepReview", "footer.actions", 0);
    }
};

TEST_F(ScreenSettings, OutliveARestart) {
    press("settings", "sweeping.schedule", nullptr, 2);
    press("settings", "sweeping.remind", nullptr, false);
    press("settings", "sweeping.trash", nullptr, false);
    driver().call("relaunch");
    EXPECT_EQ(shown().at("sweeping").at("schedule").at("selected"), 2);
    EXPECT_EQ(shown().at("sweeping").at("remind").at("on"), false);
    EXPECT_EQ(shown().at("sweeping").at("trash").at("on"), false);
}

TEST_F(ScreenSettings, TheReminderAsksBeforeItGoesOn) {
    disk.host["answersNotifications"] = "denied";
    press("settings", "sweeping.remind", nullptr, false);
    EXPECT_EQ(driver().effects(), Json::array());
    press("settings", "sweeping.remind", nullptr, true);
    EXPECT_EQ(driver().effects("requestNotifications").size(), 1U);
    EXPECT_EQ(shown().at("sweeping").at("remind").at("on"), false);
    EXPECT_EQ(shown().at("sweeping").at("notificationsOff").at("text"),
              "Notifications are off for Morvane.");
    press("settings", "sweeping.notificationsOff.button");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"openURL":
        "x-apple.systempreferences:com.apple.Notifications-Settings.extension"}])"));
    driver().host({{"notifications", "authorized"}});
    press("settings", "sweeping.remind", nullptr, true);
    EXPECT_EQ(shown().at("sweeping").at("remind").at("on"), true);
    EXPECT_EQ(shown().at("sweeping").at("notificationsOff"), nullptr);
}

TEST_F(ScreenSettings, AnIgnoredFolderThatHasGoneStaysListed) {
    disk.makeFolder("/Users/sam/Work");
    disk.host["openPanel"] = {"/Users/sam/Work"};
    press("settings", "ignoreList.add");
    EXPECT_EQ(driver().effects("openPanel").at(0).at("prompt"), "Ignore");
    EXPECT_EQ(folder().at("label"), "~/Work");
    press("settings", "ignoreList.rows.show", "/Users/sam/Work");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"reveal": ["/Users/sam/Work"]}])"));
    disk.remove("/Users/sam/Work");
    EXPECT_EQ(folder().at("symbol"), "questionmark.folder");
    EXPECT_EQ(folder().at("tooltip"), "/Users/sam/Work no longer exists");
    EXPECT_EQ(folder().at("show"), nullptr);
    driver().error(pressing("settings", "ignoreList.rows.show", "/Users/sam/Work"));
    press("settings", "ignoreList.rows.remove", "/Users/sam/Work");
    EXPECT_EQ(shown().at("ignoreList").at("rows"), Json::array());
}

TEST_F(ScreenSettings, AFolderWhoseNameIsNoTextCanBeShownAndRemoved) {
    disk.makeFolder("/Users/sam/W\xFFrk");
    disk.host["openPanel"] = {"/Users/sam/W%FFrk"};
    press("settings", "ignoreList.add");
    EXPECT_EQ(folder().at("id"), "/Users/sam/W%FFrk");
    EXPECT_EQ(folder().at("label"), "~/W%FFrk");
    EXPECT_EQ(folder().at("exists"), true);
    driver().effects();
    press("settings", "ignoreList.rows.show", "/Users/sam/W%FFrk");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"reveal": ["/Users/sam/W%FFrk"]}])"));
    press("settings", "ignoreList.rows.remove", "/Users/sam/W%FFrk");
    EXPECT_EQ(shown().at("ignoreList").at("rows"), Json::array());
}

TEST_F(ScreenSettings, ASweepIsRestoredOnceAndStaysSo) {
    sweepCaches();
    driver().call("relaunch");
    EXPECT_EQ(card().at("kind"), "idle");
    EXPECT_EQ(entry().at("restore").at("label"), "Restore");
    press("settings", "history.rows.restore", entry().at("id"));
    EXPECT_TRUE(disk.has(caches + "com.a.One/data"));
    EXPECT_EQ(entry().at("words"), "Put back");
    driver().error(pressing("settings", "history.rows.restore", entry().at("id")));
    driver().call("relaunch");
    EXPECT_EQ(entry().at("words"), "Put back");
    EXPECT_EQ(entry().at("restore"), nullptr);
}

TEST_F(ScreenSettings, AnEmptiedTrashIsSeenOnComingBackWithoutAPress) {
    sweepCaches();
    driver().set({{"selection", "settings"}});
    EXPECT_EQ(entry().at("state"), "restorable");
    disk.remove("/Users/sam/.Trash/com.a.One");
    becomeActive();
    EXPECT_EQ(entry().at("state"), "emptied");
    EXPECT_EQ(entry().at("words"), "Trash was emptied");
    EXPECT_EQ(entry().at("restore"), nullptr);
}

TEST_F(ScreenSettings, WhatIsInTheWayIsToldAtItsRow) {
    sweepCaches();
    disk.text(caches + "com.a.One/data", "new");
    press("settings", "history.rows.restore", entry().at("id"));
    EXPECT_EQ(entry().at("problem"), "Something new is in the way of 1 item.");
    EXPECT_EQ(entry().at("restore").at("label"), "Restore");
    EXPECT_EQ(disk.content(caches + "com.a.One/data"), "new");
}

TEST_F(ScreenSettings, LookAtThePermissionsOnAppearingAndOnComingBackWhileOnView) {
    driver().call("finishOnboarding");
    driver().host({{"fullDiskAccess", "denied"}, {"notifications", "denied"}});
    becomeActive();
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
    EXPECT_EQ(driver().get("notificationStatus"), "notDetermined");
    appear("settings");
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
    EXPECT_EQ(driver().get("notificationStatus"), "denied");
    EXPECT_EQ(driver().get("selection"), "overview");
    driver().host({{"notifications", "authorized"}});
    press("sidebar", "settings");
    EXPECT_EQ(driver().get("notificationStatus"), "denied");
    becomeActive();
    EXPECT_EQ(driver().get("notificationStatus"), "granted");
}

TEST_F(ScreenSettings, ABundleWithoutAVersionShowsQuestionMarks) {
    disk.host["bundle"] = {{"shortVersion", nullptr}, {"version", nullptr}};
    EXPECT_EQ(shown().at("updates").at("version"), "Version ? (?)");
}

TEST_F(ScreenSettings, TheDownloadKeepsItsValueWhileChecksAreOff) {
    press("settings", "updates.check", nullptr, true);
    press("settings", "updates.download", nullptr, true);
    press("settings", "updates.check", nullptr, false);
    EXPECT_EQ(shown().at("updates").at("download").at("on"), true);
    EXPECT_EQ(shown().at("updates").at("download").at("enabled"), false);
    driver().error(pressing("settings", "updates.download", nullptr, false));
}

}  // namespace
}  // namespace morvane::test
