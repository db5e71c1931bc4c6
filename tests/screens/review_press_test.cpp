// What the controls of the review do.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

class ReviewPress : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        CleanupItem caches = placed(trashItem("caches", Safety::safe, 3'000'000));
        caches.revealURL = "/x/caches";
        state->crumbItems = {caches, placed(trashItem("logs", Safety::safe, 2'000'000))};
        state->backupItems = {placed(trashItem("backup:1", Safety::review, 7'000'000))};
        state->sweepSelection = {"caches", "logs"};
        state->scanPhase = ScanPhase::done;
        state->scannedAt = system.now;
    }
    Names use(const std::string& control, const std::optional<std::string>& row = {},
              const Value& value = {}) {
        return changedBy([&] { press("sweepReview", control, row, value); });
    }
};

TEST_F(ReviewPress, APresetSetsTheSelection) {
    EXPECT_THAT(use("preset", {}, std::int64_t{1}), ElementsAre("sweepSelection"));
    EXPECT_THAT(*state->sweepSelection, ElementsAre("backup:1", "caches", "logs"));
    use("preset", {}, std::int64_t{2});
    EXPECT_THAT(*state->sweepSelection, IsEmpty());
    use("preset", {}, std::int64_t{0});
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "logs"));
}

TEST_F(ReviewPress, AGroupsBoxClearsAFullGroupAndFillsAnyOther) {
    EXPECT_THAT(use("groups.state", "System Crumbs"), ElementsAre("sweepSelection"));
    EXPECT_THAT(*state->sweepSelection, IsEmpty());
    use("groups.state", "System Crumbs");
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "logs"));
    use("groups.rows.state", "logs");
    use("groups.state", "System Crumbs");
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "logs"));
    use("groups.state", "iPhone Backups");
    EXPECT_THAT(*state->sweepSelection, ElementsAre("backup:1", "caches", "logs"));
}

TEST_F(ReviewPress, ARowsBoxTogglesItAlone) {
    EXPECT_THAT(use("groups.rows.state", "backup:1"), ElementsAre("sweepSelection"));
    EXPECT_THAT(*state->sweepSelection, ElementsAre("backup:1", "caches", "logs"));
    use("groups.rows.state", "backup:1");
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "logs"));
    EXPECT_THAT(*state->expandedSweepItems, IsEmpty());
}

TEST_F(ReviewPress, ARowOpensAndClosesAnimated) {
    EXPECT_THAT(use("groups.rows.open", "logs"), ElementsAre("expandedSweepItems"));
    EXPECT_THAT(animated, ElementsAre("expandedSweepItems"));
    EXPECT_THAT(*state->expandedSweepItems, ElementsAre("logs"));
    use("groups.rows.open", "logs");
    EXPECT_THAT(*state->expandedSweepItems, IsEmpty());
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "logs"));
}

TEST_F(ReviewPress, AnOpenRowsItemIsRevealed) {
    refusal("sweepReview", "groups.rows.panel.reveal", "caches");
    use("groups.rows.open", "caches");
    EXPECT_THAT(use("groups.rows.panel.reveal", "caches"), IsEmpty());
    EXPECT_THAT(system.workspace.revealed, ElementsAre(Path("/x/caches")));
}

TEST_F(ReviewPress, TheFooterSweepsTheSelectionAndNothingElse) {
    use("groups.rows.state", "logs");
    press("sweepReview", "footer.actions", "0");
    EXPECT_TRUE(*state->isSweeping);
    finishWork();
    EXPECT_THAT(remover.recycled, ElementsAre(Paths{"/x/caches"}));
    EXPECT_THAT(remover.removed, IsEmpty());
    EXPECT_TRUE(stands("/x/logs"));
    EXPECT_TRUE(stands("/x/backup:1"));
    EXPECT_EQ(*state->scanPhase, ScanPhase::success);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_THAT(*state->history, SizeIs(1));
}

TEST_F(ReviewPress, TheFooterDeletesWithoutTheTrash) {
    state->alwaysUseTrash = false;
    press("sweepReview", "footer.actions", "0");
    finishWork();
    EXPECT_THAT(remover.recycled, IsEmpty());
    EXPECT_THAT(remover.removed, ElementsAre(Paths{"/x/caches", "/x/logs"}));
}

TEST_F(ReviewPress, AppearingScansWhereThereWasNoScanYet) {
    state->scannedAt = std::nullopt;
    state->scanPhase = ScanPhase::idle;
    state->selection = SidebarItem::sweep;
    screens->sweepReview.appear();
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
}

TEST_F(ReviewPress, AppearingLeavesAScanAndItsResultsAlone) {
    EXPECT_THAT(changedBy([&] { screens->sweepReview.appear(); }), IsEmpty());
    state->scannedAt = std::nullopt;
    state->scanPhase = ScanPhase::scanning;
    EXPECT_THAT(changedBy([&] { screens->sweepReview.appear(); }), IsEmpty());
    EXPECT_TRUE(state->isIdle());
}

TEST_F(ReviewPress, RefusesWhatIsNotThere) {
    EXPECT_EQ(refusal("sweepReview", "groups.state", "Downloads"),
              "there is no row \"Downloads\" at \"groups.state\"");
    refusal("sweepReview", "groups.state", "0");
    refusal("sweepReview", "groups.rows.state", "System Crumbs");
    refusal("sweepReview", "groups.rows.open", "");
    refusal("sweepReview", "footer.actions", "1");
    refusal("sweepReview", "footer.actions", "-1");
    refusal("sweepReview", "footer.actions", "00");
    refusal("sweepReview", "footer.actions");
    EXPECT_EQ(refusal("sweepReview", "groups.rows", "caches"), "\"groups.rows\" is no control");
    EXPECT_EQ(refusal("sweepReview", "groups", "System Crumbs"), "\"groups\" is no control");
    EXPECT_THAT(remover.recycled, IsEmpty());
}

}  // namespace
}  // namespace morvane::screens
