// The lines of the form.

#include "ui/settings/settings_window.h"

namespace morvane {
namespace {

using SettingsForm = SettingsWindow;

TEST_F(SettingsForm, WritesWhatIsChosen) {
    state->schedule = ScanSchedule::off;
    settle();
    focus(QStringLiteral("remindSwitch"));
    key(Qt::Key_Backtab);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    key(Qt::Key_Space);
    EXPECT_EQ(*state->schedule, ScanSchedule::monthly);
    click(QStringLiteral("showInMenuBarSwitch"));
    EXPECT_FALSE(*state->showInMenuBar);
    EXPECT_EQ(text(QStringLiteral("trashCaption")),
              QStringLiteral("Recommended. You can get anything back until you empty the Trash."));
    click(QStringLiteral("trashSwitch"));
    EXPECT_FALSE(*state->alwaysUseTrash);
    EXPECT_EQ(text(QStringLiteral("trashCaption")),
              QStringLiteral("Off: swept files are deleted right away and can’t be put back."));
}

TEST_F(SettingsForm, LeadsToTheSystemsSettingsWhileNotificationsAreOff) {
    EXPECT_EQ(find(QStringLiteral("notificationsOff")), nullptr);
    state->remindWhenReady = false;
    state->notificationStatus = PermissionStatus::denied;
    settle();
    EXPECT_EQ(text(QStringLiteral("notificationsOff")),
              QStringLiteral("Notifications are off for Morvane."));
    // 4 under the label.
    EXPECT_EQ(place(QStringLiteral("notificationsOff")).top() -
                  place(QStringLiteral("remindLabel")).bottom(),
              4);
    click(QStringLiteral("notificationsOffButton"));
    EXPECT_THAT(system.workspace.openedURLs,
                testing::ElementsAre(
                    "x-apple.systempreferences:com.apple.Notifications-Settings.extension"));
    state->notificationStatus = PermissionStatus::granted;
    settle();
    EXPECT_EQ(find(QStringLiteral("notificationsOff")), nullptr);
}

TEST_F(SettingsForm, DownloadsWaitForChecks) {
    EXPECT_FALSE(item(QStringLiteral("updatesDownloadSwitch")).isEnabled());
    EXPECT_EQ(spoken(QStringLiteral("updatesDownloadSwitch"))
                  .text(QAccessible::Description)
                  .toStdString(),
              "unavailable");
    click(QStringLiteral("updatesDownloadSwitch"));
    EXPECT_TRUE(updates.calls.empty());
    item(QStringLiteral("settingsScroll")).setProperty("contentY", 10'000);
    settle();
    focus(QStringLiteral("updatesCheckSwitch"));
    key(Qt::Key_Space);
    EXPECT_TRUE(item(QStringLiteral("updatesDownloadSwitch")).isEnabled());
    key(Qt::Key_Tab);
    key(Qt::Key_Space);
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("checkForUpdates"));
    key(Qt::Key_Return);
    EXPECT_THAT(updates.calls, testing::ElementsAre("checks on", "downloads on", "check"));
}

TEST_F(SettingsForm, ChecksForUpdatesOnlyWhileACheckCanStart) {
    EXPECT_EQ(text(QStringLiteral("versionLabel")), QStringLiteral("Version 0.1.0 (1)"));
    const QQuickItem& button = item(QStringLiteral("checkForUpdates"));
    EXPECT_TRUE(button.isEnabled());
    updates.canCheck = false;
    updates.changes.tell();
    EXPECT_FALSE(button.isEnabled());
    updates.canCheck = true;
    updates.changes.tell();
    EXPECT_TRUE(button.isEnabled());
}

TEST_F(SettingsForm, SaysThatNothingWasSweptYet) {
    EXPECT_EQ(text(QStringLiteral("historyMessageLabel")), QStringLiteral("Nothing swept yet."));
    EXPECT_EQ(item(QStringLiteral("historyMessageLabel")).property("color").value<QColor>(),
              theme().inkFaint());
    EXPECT_EQ(find(QStringLiteral("sweeps")), nullptr);
    state->recordSweep("1 item", {});
    settle();
    EXPECT_EQ(find(QStringLiteral("historyMessage")), nullptr);
    EXPECT_EQ(text(QStringLiteral("sweep0Words")), QStringLiteral("Deleted right away"));
    EXPECT_EQ(item(QStringLiteral("sweep0Date")).width(), 150);
}

TEST_F(SettingsForm, ScrollsToWhatHasTheKeyboard) {
    window().resize(980, 668);
    settle();
    const auto isOnView = [&](const char* name) {
        return place(QStringLiteral("settingsScroll")).contains(place(QString::fromLatin1(name)));
    };
    EXPECT_FALSE(isOnView("checkForUpdates"));
    focus(QStringLiteral("addFolder"));
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("checkForUpdates"));
    EXPECT_TRUE(isOnView("checkForUpdates"));
    key(Qt::Key_PageUp);
    EXPECT_FALSE(isOnView("checkForUpdates"));
    EXPECT_TRUE(isOnView("sweepingTitle"));
}

TEST_F(SettingsForm, NamesItsControlsByTheirLabels) {
    EXPECT_EQ(spokenName(QStringLiteral("schedulePicker")), "Scan automatically");
    EXPECT_EQ(spoken(QStringLiteral("schedulePicker")).role(), QAccessible::Grouping);
    EXPECT_EQ(spokenName(QStringLiteral("trashSwitch")), "Always move to the Trash");
    EXPECT_EQ(spoken(QStringLiteral("trashSwitch")).role(), QAccessible::CheckBox);
    EXPECT_EQ(spoken(QStringLiteral("ignoreListTitle")).role(), QAccessible::Heading);
    spoken(QStringLiteral("trashSwitch"))
        .actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(*state->alwaysUseTrash);
}

}  // namespace
}  // namespace morvane
