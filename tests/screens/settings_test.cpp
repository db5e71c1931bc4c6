// What stands in the settings.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

class Settings : public ScreenTest {
protected:
    [[nodiscard]] Json shown() { return screen("settings"); }
    [[nodiscard]] Json sweeping() { return shown().at("sweeping"); }
    [[nodiscard]] Json updatesShown() { return shown().at("updates"); }
    [[nodiscard]] Json entry(std::size_t index = 0) {
        return shown().at("history").at("rows").at(index);
    }
    // An entry whose items lie in the Trash under their names.
    HistoryEntry swept(const Paths& originals) {
        MovedItems moved;
        for (const Path& original : originals) {
            moved[original] = trash(original.filename().native());
            files.addFile(moved[original], 10);
        }
        state->recordSweep("2 items · 6 MB", moved);
        return state->history->front();
    }
};

TEST_F(Settings, TellEverythingOfAFreshProgram) {
    EXPECT_EQ(
        shown(),
        (Json{{"title", "Settings"},
              {"sweeping", Json::parse(R"({
            "title": "Sweeping",
            "schedule": {"label": "Scan automatically",
                         "options": ["Off", "Weekly", "Monthly"], "selected": 1},
            "remind": {"label": "Let me know when more than 5 GB is ready to sweep",
                       "on": true, "enabled": true},
            "notificationsOff": null,
            "menuBar": {"label": "Show Morvane in the menu bar", "on": true, "enabled": true},
            "trash": {"label": "Always move to the Trash", "on": true, "enabled": true},
            "trashCaption": "Recommended. You can get anything back until you empty the Trash."
            })")},
              {"ignoreList",
               {{"title", "Ignore list"},
                {"rows", Json::array()},
                {"add", button("Add Folder…", {{"symbol", "plus"}})},
                {"footer",
                 "Morvane never looks inside these folders or suggests anything from them."}}},
              {"history", Json::parse(R"({
            "title": "Sweep history", "message": "Nothing swept yet.", "rows": [],
            "footer": "Your last 10 sweeps. Anything still in the Trash can be put back."})")},
              {"updates",
               {{"title", "Updates"},
                {"check", Json::parse(R"({"label": "Check for updates automatically",
                                          "on": false, "enabled": true})")},
                {"download", Json::parse(R"({"label": "Download and install updates automatically",
                                 "on": false, "enabled": false})")},
                {"version", "Version 0.1.0 (1)"},
                {"button", button("Check for Updates…")}}}}));
}

TEST_F(Settings, ShowTheScheduleAndTheSwitches) {
    state->schedule = ScanSchedule::off;
    EXPECT_EQ(sweeping().at("schedule").at("selected"), 0);
    state->schedule = ScanSchedule::monthly;
    EXPECT_EQ(sweeping().at("schedule").at("selected"), 2);
    state->remindWhenReady = false;
    state->showInMenuBar = false;
    EXPECT_EQ(sweeping().at("remind").at("on"), false);
    EXPECT_EQ(sweeping().at("menuBar").at("on"), false);
}

TEST_F(Settings, WarnWhereTheTrashIsOff) {
    state->alwaysUseTrash = false;
    EXPECT_EQ(sweeping().at("trash").at("on"), false);
    EXPECT_EQ(sweeping().at("trashCaption"),
              "Off: swept files are deleted right away and can’t be put back.");
}

TEST_F(Settings, SayThatNotificationsAreOffEvenIfNobodyWantsAReminder) {
    const Json note{{"text", "Notifications are off for Morvane."},
                    {"button", button("Open System Settings", {{"kind", "link"}})}};
    state->notificationStatus = PermissionStatus::denied;
    EXPECT_EQ(sweeping().at("notificationsOff"), note);
    state->remindWhenReady = false;
    EXPECT_EQ(sweeping().at("notificationsOff"), note);
    for (const auto status : {PermissionStatus::notDetermined, PermissionStatus::granted}) {
        state->notificationStatus = status;
        EXPECT_EQ(sweeping().at("notificationsOff"), nullptr);
    }
}

TEST_F(Settings, ListIgnoredFoldersInTheirOrder) {
    files.addFolder(home("Work"));
    files.addFolder("/Volumes/Disk");
    state->ignoredFolders = {"/Volumes/Disk", "/Users/sam/Work", "/Users/sam"};
    const Json rows = shown().at("ignoreList").at("rows");
    EXPECT_EQ(rows.at(0), (Json{{"id", "/Volumes/Disk"},
                                {"symbol", "folder"},
                                {"label", "/Volumes/Disk"},
                                {"exists", true},
                                {"tooltip", "/Volumes/Disk"},
                                {"show", button("Show in Finder", {{"kind", "plain"}})},
                                {"remove", button("Remove", {{"kind", "plain"}})}}));
    EXPECT_EQ(rows.at(1).at("label"), "~/Work");
    EXPECT_EQ(rows.at(1).at("tooltip"), "/Users/sam/Work");
    EXPECT_EQ(rows.at(2).at("label"), "~");
}

TEST_F(Settings, AnIgnoredFolderThatHasGoneStaysAndCanBeRemoved) {
    files.addFolder(home("Work"));
    state->ignoredFolders = {"/Users/sam/Work"};
    EXPECT_EQ(shown().at("ignoreList").at("rows").at(0).at("exists"), true);
    files.remove(home("Work"));
    EXPECT_EQ(shown().at("ignoreList").at("rows").at(0),
              (Json{{"id", "/Users/sam/Work"},
                    {"symbol", "questionmark.folder"},
                    {"label", "~/Work"},
                    {"exists", false},
                    {"tooltip", "/Users/sam/Work no longer exists"},
                    {"show", nullptr},
                    {"remove", button("Remove", {{"kind", "plain"}})}}));
    refusal("settings", "ignoreList.rows.show", "/Users/sam/Work");
    press("settings", "ignoreList.rows.remove", "/Users/sam/Work");
    EXPECT_THAT(*state->ignoredFolders, IsEmpty());
}

TEST_F(Settings, ASweepInTheTrashCanBeRestored) {
    const HistoryEntry made = swept({"/a/one", "/b/two"});
    EXPECT_EQ(entry(), (Json{{"id", made.id},
                             {"date", "Today, 13:00"},
                             {"summary", "2 items · 6 MB"},
                             {"problem", nullptr},
                             {"state", "restorable"},
                             {"words", nullptr},
                             {"restore", button("Restore")}}));
    EXPECT_EQ(shown().at("history").at("message"), nullptr);
}

TEST_F(Settings, ASweepOfWhichOnePartIsLeftInTheTrashCanBeRestored) {
    swept({"/a/one", "/b/two"});
    files.remove(trash("one"));
    EXPECT_EQ(entry().at("state"), "restorable");
}

TEST_F(Settings, ASweepWhoseTrashWasEmptiedSaysSoWithoutAPress) {
    swept({"/a/one"});
    EXPECT_NE(entry().at("restore"), nullptr);
    files.remove(trash("one"));
    EXPECT_EQ(entry().at("state"), "emptied");
    EXPECT_EQ(entry().at("words"), "Trash was emptied");
    EXPECT_EQ(entry().at("restore"), nullptr);
}

TEST_F(Settings, ASweepThatDeletedSaysSo) {
    state->recordSweep("1 item · 5 MB", {});
    EXPECT_EQ(entry().at("state"), "deleted");
    EXPECT_EQ(entry().at("words"), "Deleted right away");
    EXPECT_EQ(entry().at("restore"), nullptr);
}

TEST_F(Settings, ARestoredSweepNeverGoesBackToARestoreButton) {
    swept({"/a/one"});
    press("settings", "history.rows.restore", entry().at("id"));
    EXPECT_TRUE(stands("/a/one"));
    for (int look = 0; look < 2; ++look) {
        EXPECT_EQ(entry().at("state"), "putBack");
        EXPECT_EQ(entry().at("words"), "Put back");
        EXPECT_EQ(entry().at("restore"), nullptr);
        files.addFile(trash("one"), 10);
    }
}

TEST_F(Settings, TellTheProblemOfASweepThatCanStillBeRestoredAndOfNoOther) {
    swept({"/a/one"});
    files.addFile("/a/one", 20);
    press("settings", "history.rows.restore", entry().at("id"));
    EXPECT_EQ(entry().at("problem"), "Something new is in the way of 1 item.");
    EXPECT_EQ(entry().at("state"), "restorable");
    files.remove(trash("one"));
    EXPECT_EQ(entry().at("problem"), nullptr);
    EXPECT_EQ(entry().at("words"), "Trash was emptied");
}

TEST_F(Settings, ListSweepsNewestFirstByTheirDates) {
    const auto made = [&](Instant date, std::string id) {
        return HistoryEntry{.id = std::move(id), .date = date, .summary = "1 item · 5 MB"};
    };
    state->history = {made(system.now, "1"), made(system.now - 24h, "2"),
                      made(system.now - 24h * 30, "3"), made(system.now - 24h * 365, "4")};
    Texts dates;
    const Json rows = shown().at("history").at("rows");
    for (const Json& row : rows) dates.push_back(row.at("date"));
    EXPECT_THAT(dates,
                ElementsAre("Today, 13:00", "Yesterday, 13:00", "22 October", "21 November 2025"));
}

TEST_F(Settings, OfASweepThatWasNotLookedAtNothingIsSaid) {
    swept({"/a/one"});
    state->ignoredFolders = {"/Users/sam"};
    const SettingsContent content = screens->settings.content(SettingsFacts{});
    EXPECT_EQ(content.history.rows.at(0).words, std::nullopt);
    EXPECT_EQ(content.history.rows.at(0).restore, std::nullopt);
    EXPECT_FALSE(content.ignoreList.rows.at(0).exists);
}

TEST_F(Settings, WithAutomaticChecksOffTheDownloadIsDisabledAndKeepsItsValue) {
    press("settings", "updates.check", {}, true);
    press("settings", "updates.download", {}, true);
    press("settings", "updates.check", {}, false);
    EXPECT_EQ(updatesShown().at("download"),
              Json::parse(R"({"label": "Download and install updates automatically",
                              "on": true, "enabled": false})"));
    updates.calls.clear();
    EXPECT_EQ(refusal("settings", "updates.download", {}, false),
              "the control \"updates.download\" is not enabled");
    EXPECT_THAT(updates.calls, IsEmpty());
    press("settings", "updates.check", {}, true);
    EXPECT_EQ(updatesShown().at("download").at("on"), true);
    EXPECT_EQ(updatesShown().at("download").at("enabled"), true);
}

TEST_F(Settings, TheCheckForUpdatesIsDisabledWhileNoneCanStart) {
    updates.canCheck = false;
    updates.changes.tell();
    EXPECT_EQ(updatesShown().at("button"), button("Check for Updates…", {{"enabled", false}}));
    refusal("settings", "updates.button");
    EXPECT_THAT(updates.calls, IsEmpty());
}

class NamelessBundle : public Settings {
protected:
    void SetUp() override {
        system.platform.bundle.shortVersion = std::nullopt;
        system.platform.bundle.version = std::nullopt;
        Settings::SetUp();
    }
};

TEST_F(NamelessBundle, ShowsAVersionOfQuestionMarks) {
    EXPECT_EQ(updatesShown().at("version"), "Version ? (?)");
}

}  // namespace
}  // namespace morvane::screens
