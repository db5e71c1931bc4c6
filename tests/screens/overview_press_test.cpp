// What the controls of the Overview's card do.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

using enum PermissionStatus;

class OverviewPress : public ScreenTest {
protected:
    void showCard(ScanPhase phase) { state->scanPhase = phase; }
    Names openCategory(const std::string& id) {
        showCard(ScanPhase::done);
        return changedBy([&] { press("overview", "card.cards", id); });
    }
    void expectScanThatShowsTheOverview() {
        EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
        EXPECT_EQ(*state->selection, SidebarItem::overview);
        EXPECT_TRUE(state->scanTask.isAtWork());
    }
};

TEST_F(OverviewPress, SweepScansAndShowsTheOverview) {
    state->selection = SidebarItem::settings;
    press("overview", "card.button");
    expectScanThatShowsTheOverview();
}

TEST_F(OverviewPress, ScanAgainScansFromBothCards) {
    showCard(ScanPhase::done);
    state->selection = SidebarItem::settings;
    press("overview", "card.scanAgain");
    expectScanThatShowsTheOverview();
    finishWork();
    showCard(ScanPhase::empty);
    state->selection = SidebarItem::settings;
    press("overview", "card.button");
    expectScanThatShowsTheOverview();
}

TEST_F(OverviewPress, StopCancelsTheScan) {
    changedBy([&] {
        press("overview", "card.button");
        state->finishedCategories = {ScanCategory::crumbs};
        press("overview", "card.button");
    });
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_THAT(*state->finishedCategories, IsEmpty());
    EXPECT_THAT(animated, testing::IsSupersetOf({"finishedCategories", "scanPhase"}));
    finishWork();
    EXPECT_EQ(*state->scannedAt, std::nullopt);
}

TEST_F(OverviewPress, ReviewGoesToTheReviewAndChangesNothingElse) {
    showCard(ScanPhase::done);
    EXPECT_THAT(changedBy([&] { press("overview", "card.review"); }), ElementsAre("selection"));
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
}

TEST_F(OverviewPress, OpenTrashLeavesThePhaseAsItIs) {
    showCard(ScanPhase::success);
    EXPECT_THAT(changedBy([&] { press("overview", "card.openTrash"); }), IsEmpty());
    EXPECT_THAT(system.workspace.opened, ElementsAre(Path("/Users/sam/.Trash")));
    EXPECT_EQ(*state->scanPhase, ScanPhase::success);
}

TEST_F(OverviewPress, DoneWithNothingLeftIsSpotlessAndNotIdle) {
    showCard(ScanPhase::success);
    state->scannedAt = system.now;
    EXPECT_THAT(changedBy([&] { press("overview", "card.button"); }), ElementsAre("scanPhase"));
    EXPECT_EQ(*state->scanPhase, ScanPhase::empty);
    EXPECT_THAT(animated, ElementsAre("scanPhase"));
    EXPECT_EQ(screen("overview").at("card").at("kind"), "empty");
}

TEST_F(OverviewPress, DoneWithSomethingLeftShowsIt) {
    showCard(ScanPhase::success);
    state->scannedAt = system.now;
    state->backupItems = {trashItem("one", Safety::review, 8'000'000)};
    press("overview", "card.button");
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
}

TEST_F(OverviewPress, CrumbsAndLeftoversGoToTheReview) {
    for (const char* category : {"crumbs", "leftovers"}) {
        state->selection = SidebarItem::overview;
        EXPECT_THAT(openCategory(category), ElementsAre("selection"));
        EXPECT_EQ(*state->selection, SidebarItem::sweep);
    }
}

TEST_F(OverviewPress, DeveloperGoesToTheDeveloperScreen) {
    EXPECT_THAT(openCategory("developer"), ElementsAre("selection"));
    EXPECT_EQ(*state->selection, SidebarItem::developer);
}

TEST_F(OverviewPress, LargeFilesAlwaysGoesBackToTheFiltersOfTheCard) {
    state->fileMinMB = 500;
    state->fileMinMonths = 24;
    state->fileKind = FileKind::video;
    EXPECT_THAT(openCategory("largeFiles"),
                ElementsAre("fileKind", "fileMinMB", "fileMinMonths", "selection"));
    EXPECT_EQ(*state->fileMinMB, 100);
    EXPECT_EQ(*state->fileMinMonths, 12);
    EXPECT_EQ(*state->fileKind, std::nullopt);
    EXPECT_EQ(*state->selection, SidebarItem::large);
}

TEST_F(OverviewPress, BackupsGoToTheReviewWithAccessAndAskForItWithout) {
    EXPECT_THAT(openCategory("backups"), ElementsAre("selection"));
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    EXPECT_THAT(system.workspace.openedURLs, IsEmpty());
    setAccess(denied);
    state->selection = SidebarItem::overview;
    EXPECT_THAT(openCategory("backups"), IsEmpty());
    EXPECT_THAT(
        system.workspace.openedURLs,
        ElementsAre("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
    EXPECT_TRUE(state->accessWatchTask.isAtWork());
}

TEST_F(OverviewPress, ACardThatIsNotThereCannotBePressed) {
    showCard(ScanPhase::done);
    EXPECT_EQ(refusal("overview", "card.cards", "leftAlone"),
              "there is no row \"leftAlone\" at \"card.cards\"");
    EXPECT_EQ(refusal("overview", "card.cards"), "the control \"card.cards\" needs a row");
    EXPECT_EQ(refusal("overview", "card.button"), "the control \"card.button\" is not on view");
    EXPECT_EQ(refusal("overview", "card.openTrash"),
              "the control \"card.openTrash\" is not on view");
    showCard(ScanPhase::idle);
    for (const char* control : {"card.review", "card.scanAgain", "card.openTrash"}) {
        refusal("overview", control);
    }
    refusal("overview", "card.cards", "crumbs");
}

TEST_F(OverviewPress, TheStatementOfWhatIsLeftAloneIsNoControl) {
    showCard(ScanPhase::done);
    EXPECT_EQ(refusal("overview", "card.leftAlone"), "\"card.leftAlone\" is no control");
}

TEST_F(OverviewPress, WorksWhileItsScreenIsNotSelected) {
    state->selection = SidebarItem::settings;
    showCard(ScanPhase::success);
    state->scannedAt = system.now;
    press("overview", "card.button");
    EXPECT_EQ(*state->scanPhase, ScanPhase::empty);
    EXPECT_EQ(*state->selection, SidebarItem::settings);
}

}  // namespace
}  // namespace morvane::screens
