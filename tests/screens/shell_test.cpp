// The frame of the program: its title, its menus, its place in the menu bar.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

class Shell : public ScreenTest {
protected:
    [[nodiscard]] Json shown() { return screen("shell"); }
    // Of every command, in order: whether it is enabled.
    [[nodiscard]] Json enabled() {
        Json states = Json::object();
        const Json all = shown();
        for (const Json& menu : all.at("menus")) {
            for (const Json& item : menu.at("items")) {
                states[item.at("id").get<std::string>()] = item.at("enabled");
            }
        }
        return states;
    }
};

TEST_F(Shell, OffersItsCommandsInTwoMenus) {
    EXPECT_EQ(shown(), Json::parse(R"({
        "content": "main",
        "windowTitle": "Overview",
        "menus": [
            {"title": "Morvane", "items": [
                {"id": "about", "label": "About Morvane", "key": null, "enabled": true},
                {"id": "checkForUpdates", "label": "Check for Updates…", "key": null,
                 "enabled": true},
                {"id": "settings", "label": "Settings…", "key": "Command+,", "enabled": true}]},
            {"title": "Sweep", "items": [
                {"id": "scanNow", "label": "Scan Now", "key": "Command+R", "enabled": true},
                {"id": "review", "label": "Review & Sweep", "key": "Command+Shift+S",
                 "enabled": true}]}],
        "menuBarExtra": {"visible": true, "label": "100 GB"}})"));
}

TEST_F(Shell, BeforeOnboardingHasEndedOnlyAboutAndUpdatesWork) {
    state->hasOnboarded = false;
    EXPECT_EQ(shown().at("content"), "onboarding");
    EXPECT_EQ(shown().at("windowTitle"), "Morvane");
    EXPECT_EQ(enabled(), Json::parse(R"({"about": true, "checkForUpdates": true,
                                         "settings": false, "scanNow": false,
                                         "review": false})"));
    press("shell", "menus.items", "about");
    EXPECT_THAT(windows.opened, ElementsAre("about"));
    for (const char* command : {"settings", "scanNow", "review"}) {
        EXPECT_EQ(refusal("shell", "menus.items", command),
                  "the control \"menus.items\" is not enabled");
    }
}

TEST_F(Shell, DisablesTheCheckForUpdatesAtOnceWhileNoneCanStart) {
    updates.canCheck = false;
    updates.changes.tell();
    EXPECT_EQ(enabled().at("checkForUpdates"), false);
    refusal("shell", "menus.items", "checkForUpdates");
    EXPECT_THAT(updates.calls, IsEmpty());
    updates.canCheck = true;
    updates.changes.tell();
    EXPECT_EQ(enabled().at("checkForUpdates"), true);
}

TEST_F(Shell, TakesItsTitleFromTheScreenOnView) {
    for (const auto& [item, title] : {std::pair{SidebarItem::overview, "Overview"},
                                      {SidebarItem::sweep, "Sweep"},
                                      {SidebarItem::settings, "Settings"}}) {
        state->selection = item;
        EXPECT_EQ(shown().at("windowTitle"), title);
    }
}

TEST_F(Shell, WithoutASelectionShowsTheOverview) {
    state->selection = std::nullopt;
    EXPECT_EQ(shown().at("windowTitle"), "Overview");
    EXPECT_EQ(shown().at("content"), "main");
}

TEST_F(Shell, LeavesTheMenuBarWhileItIsSwitchedOffAndComesBack) {
    state->showInMenuBar = false;
    EXPECT_EQ(shown().at("menuBarExtra"), Json::parse(R"({"visible": false, "label": "100 GB"})"));
    EXPECT_EQ(enabled().at("scanNow"), true);
    state->showInMenuBar = true;
    EXPECT_EQ(shown().at("menuBarExtra").at("visible"), true);
}

TEST_F(Shell, TellsTheFreeSpaceInTheMenuBar) {
    state->disk = DiskUsage{.totalBytes = 500'000'000'000, .freeBytes = 99'500'000'000};
    EXPECT_EQ(shown().at("menuBarExtra").at("label"), "99.5 GB");
    state->disk = DiskUsage{};
    EXPECT_EQ(shown().at("menuBarExtra").at("label"), "0 GB");
}

TEST_F(Shell, EachCommandDoesOneThing) {
    EXPECT_THAT(changedBy([&] { press("shell", "menus.items", "about"); }), IsEmpty());
    EXPECT_THAT(changedBy([&] { press("shell", "menus.items", "checkForUpdates"); }), IsEmpty());
    EXPECT_THAT(updates.calls, ElementsAre("check"));
    EXPECT_THAT(windows.opened, ElementsAre("about"));
    EXPECT_THAT(changedBy([&] { press("shell", "menus.items", "settings"); }),
                ElementsAre("selection"));
    EXPECT_EQ(*state->selection, SidebarItem::settings);
    EXPECT_THAT(changedBy([&] { press("shell", "menus.items", "review"); }),
                ElementsAre("selection"));
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    EXPECT_TRUE(state->isIdle());
}

TEST_F(Shell, ScanNowScansAndShowsTheOverview) {
    state->selection = SidebarItem::settings;
    press("shell", "menus.items", "scanNow");
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    finishWork();
    EXPECT_NE(*state->scannedAt, std::nullopt);
}

TEST_F(Shell, MeasuresTheDiskOnceOnAppearing) {
    screens->shell.appear();
    EXPECT_TRUE(state->diskTask.isAtWork());
    finishWork();
    EXPECT_TRUE(state->disk->isComplete);
    screens->shell.appear();
    EXPECT_TRUE(state->isIdle());
}

TEST_F(Shell, OnAppearingStartsNoScan) {
    screens->shell.appear();
    finishWork();
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
}

}  // namespace
}  // namespace morvane::screens
