// Looking at the screens, and coming to the front.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

using enum PermissionStatus;

class Reading : public ScreenTest {
protected:
    void readAll() {
        for (const char* name : {"shell", "sidebar", "overview", "sweepReview", "settings"}) {
            EXPECT_TRUE(screen(name).is_object()) << name;
        }
    }
    [[nodiscard]] bool asksNothingOfTheDesktop() const {
        const auto& workspace = system.workspace;
        return workspace.openedURLs.empty() && workspace.opened.empty() &&
               workspace.revealed.empty() && workspace.panels.empty() &&
               workspace.activations == 0 && workspace.asked.empty() &&
               system.notifications.requests.empty() && system.notifications.posted.empty() &&
               windows.opened.empty() && updates.calls.empty();
    }
};

TEST_F(Reading, WritesNothingAndStartsNothing) {
    state->ignoredFolders = {"/gone"};
    state->crumbItems = {placed(trashItem("one", Safety::safe, 1))};
    state->expandedSweepItems = {"one"};
    files.addFile(trash("one"), 1);
    state->recordSweep("1 item · 1 KB", {{"/x/one", trash("one")}});
    const Paths before = files.everything();
    for (const ScanPhase phase : {ScanPhase::idle, ScanPhase::scanning, ScanPhase::done,
                                  ScanPhase::success, ScanPhase::empty}) {
        state->scanPhase = phase;
        defaults.writes.clear();
        EXPECT_THAT(changedBy([&] { readAll(); }), IsEmpty());
        EXPECT_THAT(defaults.writes, IsEmpty());
    }
    EXPECT_TRUE(state->isIdle());
    EXPECT_TRUE(asksNothingOfTheDesktop());
    EXPECT_EQ(files.everything(), before);
}

TEST_F(Reading, APressThatIsOnlyFoundDoesNothingYet) {
    const auto found = screens->overview.press({"card.button", {}, {}});
    EXPECT_TRUE(std::holds_alternative<Screen::Act>(found));
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_TRUE(state->isIdle());
}

TEST_F(Reading, KnowsItsScreensByName) {
    EXPECT_EQ(screens->names(), "shell, sidebar, overview, sweepReview, settings");
    EXPECT_EQ(screens->named("Overview"), nullptr);
    EXPECT_EQ(screens->named(""), nullptr);
    EXPECT_EQ(screens->named("review"), nullptr);
}

class Activation : public Reading {
protected:
    // The access was taken away behind the program's back, and the disk filled up.
    void SetUp() override {
        Reading::SetUp();
        files.remove(library("Safari/Bookmarks.plist"));
        system.volume.setFigures(VolumeFigures{"Macintosh HD", 500, 50, 50});
    }
};

TEST_F(Activation, LooksAtTheVolumeAndNoFurtherWhereNoPermissionIsOnView) {
    for (const auto item : {SidebarItem::overview, SidebarItem::sweep}) {
        state->selection = item;
        state->disk = DiskUsage{};
        screens->becameActive();
        finishWork();
        EXPECT_EQ(state->disk->freeBytes, 50);
        EXPECT_EQ(*state->fullDiskAccess, granted);
    }
    state->selection = std::nullopt;
    screens->becameActive();
    EXPECT_EQ(*state->fullDiskAccess, granted);
}

TEST_F(Activation, LooksAtThePermissionsWhereTheSettingsAreOnView) {
    state->selection = SidebarItem::settings;
    system.notifications.status = denied;
    screens->becameActive();
    finishWork();
    EXPECT_EQ(state->disk->freeBytes, 50);
    EXPECT_EQ(*state->fullDiskAccess, denied);
    EXPECT_EQ(*state->notificationStatus, denied);
}

TEST_F(Activation, LooksAtThePermissionsDuringOnboarding) {
    state->hasOnboarded = false;
    screens->becameActive();
    EXPECT_EQ(*state->fullDiskAccess, denied);
}

TEST_F(Activation, StartsNoScan) {
    screens->becameActive();
    finishWork();
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_TRUE(asksNothingOfTheDesktop());
}

}  // namespace
}  // namespace morvane::screens
