// What the controls of the settings do.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

using enum PermissionStatus;

class SettingsPress : public ScreenTest {
protected:
    Names use(const std::string& control, const std::optional<std::string>& row = {},
              const Value& value = {}) {
        return changedBy([&] { press("settings", control, row, value); });
    }
};

TEST_F(SettingsPress, TheScheduleIsStored) {
    EXPECT_THAT(use("sweeping.schedule", {}, std::int64_t{2}), ElementsAre("schedule"));
    EXPECT_EQ(*state->schedule, ScanSchedule::monthly);
    EXPECT_THAT(defaults.writtenKeys(), ElementsAre("scanSchedule"));
    use("sweeping.schedule", {}, std::int64_t{0});
    EXPECT_EQ(*state->schedule, ScanSchedule::off);
    EXPECT_TRUE(state->isIdle());
}

TEST_F(SettingsPress, TheReminderGoesOffAtOnceAndAsksNobody) {
    EXPECT_THAT(use("sweeping.remind", {}, false), ElementsAre("remindWhenReady"));
    EXPECT_FALSE(*state->remindWhenReady);
    EXPECT_THAT(system.notifications.requests, IsEmpty());
}

TEST_F(SettingsPress, TheReminderGoesOnOnlyWhereItIsAllowed) {
    state->remindWhenReady = false;
    system.notifications.answersWith = denied;
    press("settings", "sweeping.remind", {}, true);
    EXPECT_FALSE(*state->remindWhenReady);
    finishWork();
    EXPECT_THAT(system.notifications.requests, SizeIs(1));
    EXPECT_EQ(*state->notificationStatus, denied);
    EXPECT_FALSE(*state->remindWhenReady);
    system.notifications.status = granted;
    press("settings", "sweeping.remind", {}, true);
    finishWork();
    EXPECT_EQ(*state->notificationStatus, granted);
    EXPECT_TRUE(*state->remindWhenReady);
}

TEST_F(SettingsPress, TheReminderAndItsPermissionAreStoredAnimated) {
    state->remindWhenReady = false;
    const Names changed = changedBy([&] {
        press("settings", "sweeping.remind", {}, true);
        finishWork();
    });
    EXPECT_THAT(changed, ElementsAre("notificationStatus", "remindWhenReady"));
    EXPECT_EQ(animated, changed);
}

TEST_F(SettingsPress, TheNoteOpensThePaneOfNotifications) {
    refusal("settings", "sweeping.notificationsOff.button");
    state->notificationStatus = denied;
    EXPECT_THAT(use("sweeping.notificationsOff.button"), IsEmpty());
    EXPECT_THAT(
        system.workspace.openedURLs,
        ElementsAre("x-apple.systempreferences:com.apple.Notifications-Settings.extension"));
    EXPECT_FALSE(state->accessWatchTask.isAtWork());
}

TEST_F(SettingsPress, TheSwitchesWriteTheirFields) {
    EXPECT_THAT(use("sweeping.menuBar", {}, false), ElementsAre("showInMenuBar"));
    EXPECT_FALSE(*state->showInMenuBar);
    EXPECT_THAT(use("sweeping.trash", {}, false), ElementsAre("alwaysUseTrash"));
    EXPECT_FALSE(*state->alwaysUseTrash);
    use("sweeping.menuBar", {}, true);
    use("sweeping.trash", {}, true);
    EXPECT_TRUE(*state->showInMenuBar);
    EXPECT_TRUE(*state->alwaysUseTrash);
}

TEST_F(SettingsPress, ASwitchTakesTheValueItHas) {
    EXPECT_THAT(use("sweeping.trash", {}, true), IsEmpty());
    EXPECT_TRUE(*state->alwaysUseTrash);
}

TEST_F(SettingsPress, AFolderIsShownAndRemoved) {
    files.addFolder(home("Work"));
    files.addFolder(home("Play"));
    state->ignoredFolders = {"/Users/sam/Work", "/Users/sam/Play"};
    EXPECT_THAT(use("ignoreList.rows.show", "/Users/sam/Play"), IsEmpty());
    EXPECT_THAT(system.workspace.revealed, ElementsAre(Path("/Users/sam/Play")));
    EXPECT_THAT(use("ignoreList.rows.remove", "/Users/sam/Work"), ElementsAre("ignoredFolders"));
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/Users/sam/Play"));
}

TEST_F(SettingsPress, FoldersAreAddedFromThePanel) {
    files.addFolder(home("Work"));
    system.workspace.panelAnswer = Paths{home("Work")};
    press("settings", "ignoreList.add");
    finishWork();
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/Users/sam/Work"));
    EXPECT_THAT(system.workspace.panels, SizeIs(1));
}

TEST_F(SettingsPress, RestorePutsOneSweepBack) {
    files.addFile(trash("one"), 10);
    files.addFile(trash("two"), 10);
    state->recordSweep("1 item · 5 MB", {{"/a/one", trash("one")}});
    const std::string first = state->history->front().id;
    state->recordSweep("1 item · 6 MB", {{"/a/two", trash("two")}});
    press("settings", "history.rows.restore", first);
    EXPECT_TRUE(stands("/a/one"));
    EXPECT_FALSE(stands("/a/two"));
    EXPECT_FALSE(state->history->at(0).restored);
    EXPECT_TRUE(state->history->at(1).restored);
    EXPECT_THAT(remover.putBacks, SizeIs(1));
}

TEST_F(SettingsPress, WhatCannotBeRestoredHasNoButton) {
    state->recordSweep("1 item · 5 MB", {});
    EXPECT_EQ(refusal("settings", "history.rows.restore", state->history->front().id),
              "the control \"history.rows.restore\" is not on view");
    EXPECT_EQ(refusal("settings", "history.rows.restore", "nobody"),
              "there is no row \"nobody\" at \"history.rows.restore\"");
}

TEST_F(SettingsPress, TheUpdatersSwitchesAreHandedOn) {
    EXPECT_THAT(use("updates.check", {}, true), IsEmpty());
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    use("updates.download", {}, true);
    EXPECT_TRUE(updater->automaticallyDownloadsUpdates());
    use("updates.button");
    EXPECT_THAT(updates.calls, ElementsAre("checks on", "downloads on", "check"));
}

TEST_F(SettingsPress, AppearingBringsThePermissionsUpToDate) {
    files.remove(library("Safari/Bookmarks.plist"));
    system.notifications.status = denied;
    screens->settings.appear();
    finishWork();
    EXPECT_EQ(*state->fullDiskAccess, denied);
    EXPECT_EQ(*state->notificationStatus, denied);
}

}  // namespace
}  // namespace morvane::screens
