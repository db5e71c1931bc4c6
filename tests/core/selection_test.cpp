#include "core/store_test.h"

namespace morvane {
namespace {

using enum Safety;

class Selection : public StoreTest {
protected:
    Selection() {
        start();
        state->crumbItems = {trashItem("caches", safe, 1'500'000)};
        state->downloadItems = {trashItem("installers", safe, 2'000'000),
                                trashItem("otherInstallers", review, 40'000'000)};
        state->leftoverItems = {trashItem("leftover:a", regenerates, 3'000'000)};
        state->backupItems = {trashItem("backup:b", review, 500'000'000)};
        state->devSections = {{devSection("dd", {trashItem("dd:/a", regenerates, 7'000'000)}),
                               devSection("arc", {trashItem("arc:/b", review, 9'000'000),
                                                  trashItem("arc:/c", safe, 1)})}};
    }
};

TEST_F(Selection, OffersItemsInTheOrderOfTheirLists) {
    EXPECT_THAT(idsOf(state->sweepItems()),
                ElementsAre("caches", "installers", "otherInstallers", "leftover:a", "backup:b"));
    EXPECT_THAT(idsOf(state->devItems()), ElementsAre("dd:/a", "arc:/b", "arc:/c"));
}

TEST_F(Selection, HasNoDeveloperItemsBeforeTheirFirstScan) {
    state->devSections = std::nullopt;
    EXPECT_THAT(state->devItems(), IsEmpty());
    EXPECT_EQ(state->categoryMB(ScanCategory::developer), 0.0);
}

TEST_F(Selection, GroupsWhatItOffers) {
    EXPECT_EQ(state->sweepGroups(),
              (std::vector<SweepGroup>{{"System Crumbs", "sparkles", *state->crumbItems},
                                       {"Downloads", "arrow.down.to.line", *state->downloadItems},
                                       {"App Leftovers", "shippingbox", *state->leftoverItems},
                                       {"iPhone Backups", "iphone", *state->backupItems}}));
}

TEST_F(Selection, LeavesOutEmptyGroups) {
    state->downloadItems = {};
    state->backupItems = {};
    const auto groups = state->sweepGroups();
    ASSERT_THAT(groups, SizeIs(2));
    EXPECT_EQ(groups[0].name, "System Crumbs");
    EXPECT_EQ(groups[1].name, "App Leftovers");
}

TEST_F(Selection, IsSafeForWhatAsksForNoReview) {
    EXPECT_THAT(state->safeSelection(), ElementsAre("caches", "installers", "leftover:a"));
}

TEST_F(Selection, OffersMegabytesWithoutReviewAndDeveloperItems) {
    EXPECT_EQ(state->safeMB(), 6.5);
}

TEST_F(Selection, OfNothingOffersNothing) {
    state->crumbItems = {};
    state->downloadItems = {};
    state->leftoverItems = {};
    state->backupItems = {};
    EXPECT_EQ(state->activePreset(), SweepPreset::nothing);
    EXPECT_EQ(state->safeMB(), 0.0);
    EXPECT_THAT(state->sweepGroups(), IsEmpty());
    state->applyPreset(SweepPreset::all);
    EXPECT_EQ(state->activePreset(), SweepPreset::nothing);
}

TEST_F(Selection, TakesEachPreset) {
    state->applyPreset(SweepPreset::all);
    EXPECT_THAT(*state->sweepSelection,
                ElementsAre("backup:b", "caches", "installers", "leftover:a", "otherInstallers"));
    EXPECT_EQ(state->activePreset(), SweepPreset::all);
    state->applyPreset(SweepPreset::safe);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "installers", "leftover:a"));
    EXPECT_EQ(state->activePreset(), SweepPreset::safe);
    state->applyPreset(SweepPreset::nothing);
    EXPECT_THAT(*state->sweepSelection, IsEmpty());
    EXPECT_EQ(state->activePreset(), SweepPreset::nothing);
}

TEST_F(Selection, OfReviewItemsAloneIsNothingUntilAllAreTaken) {
    state->crumbItems = {};
    state->downloadItems = {};
    state->leftoverItems = {};
    EXPECT_THAT(state->safeSelection(), IsEmpty());
    EXPECT_EQ(state->activePreset(), SweepPreset::nothing);
    state->applyPreset(SweepPreset::all);
    EXPECT_EQ(state->activePreset(), SweepPreset::all);
}

TEST_F(Selection, OfSafeItemsAloneReadsAsSafeAndNotAsAll) {
    state->downloadItems = {};
    state->backupItems = {};
    state->applyPreset(SweepPreset::all);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "leftover:a"));
    EXPECT_EQ(state->activePreset(), SweepPreset::safe);
}

TEST_F(Selection, LessOneItemIsNoPresetUnlessItHappensToBeSafe) {
    state->applyPreset(SweepPreset::all);
    state->toggleSweepItem("caches");
    EXPECT_EQ(state->activePreset(), std::nullopt);
    state->applyPreset(SweepPreset::all);
    state->toggleSweepItem("backup:b");
    EXPECT_EQ(state->activePreset(), std::nullopt);
    state->toggleSweepItem("otherInstallers");
    EXPECT_EQ(state->activePreset(), SweepPreset::safe);
}

TEST_F(Selection, TogglesOneId) {
    state->toggleSweepItem("backup:b");
    EXPECT_THAT(*state->sweepSelection, ElementsAre("backup:b"));
    EXPECT_THAT(idsOf(state->selectedSweepItems()), ElementsAre("backup:b"));
    state->toggleSweepItem("backup:b");
    EXPECT_THAT(*state->sweepSelection, IsEmpty());

    state->toggleDevItem("arc:/c");
    EXPECT_THAT(idsOf(state->selectedDevItems()), ElementsAre("arc:/c"));
    state->toggleDevItem("arc:/c");
    EXPECT_THAT(*state->devSelection, IsEmpty());

    state->toggleExpanded("caches");
    EXPECT_THAT(*state->expandedSweepItems, ElementsAre("caches"));
    state->toggleExpanded("caches");
    EXPECT_THAT(*state->expandedSweepItems, IsEmpty());
}

TEST_F(Selection, KeepsTheOrderOfTheListsAndPassesOverWhatIsGone) {
    state->sweepSelection = Ids{"backup:b", "caches", "gone"};
    EXPECT_THAT(idsOf(state->selectedSweepItems()), ElementsAre("caches", "backup:b"));
}

TEST_F(Selection, ShowsAGroupByHowMuchOfItIsChosen) {
    const SweepGroup downloads = state->sweepGroups()[1];
    EXPECT_EQ(state->checkState(downloads), CheckState::off);
    state->toggleSweepItem("installers");
    EXPECT_EQ(state->checkState(downloads), CheckState::mixed);
    state->toggleSweepItem("otherInstallers");
    EXPECT_EQ(state->checkState(downloads), CheckState::on);
}

TEST_F(Selection, FillsAMixedGroupWithItsReviewItemsToo) {
    state->sweepSelection = Ids{"caches", "installers"};
    const SweepGroup downloads = state->sweepGroups()[1];
    state->toggleGroup(downloads, CheckState::mixed);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "installers", "otherInstallers"));
    state->toggleGroup(downloads, CheckState::on);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches"));
    state->toggleGroup(downloads, CheckState::off);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "installers", "otherInstallers"));
}

}  // namespace
}  // namespace morvane
