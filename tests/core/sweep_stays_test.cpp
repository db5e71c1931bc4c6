#include <cerrno>

#include "core/sweep_fixture.h"

namespace morvane {
namespace {

using enum Safety;

TEST_F(Sweep, OfOneFileThatCannotBeDeletedGoesOnWithTheNext) {
    fill();
    state->alwaysUseTrash = false;
    remover.immovable = {"/c/a"};
    sweep(state->sweepItems());
    EXPECT_TRUE(stands("/c/a"));
    EXPECT_FALSE(stands("/c/b"));
    EXPECT_FALSE(stands("/b/a"));
    EXPECT_EQ(*state->freedMB, 5.5);
}

TEST_F(Sweep, OfAnItemOfWhichOnePartStays) {
    state->crumbItems = {
        placed(trashItem("first", safe, 9)),
        placed(trashItem("caches", regenerates, {{"/c/a", 1'000'000}, {"/c/b", 2'000'000}})),
        placed(trashItem("last", safe, 9))};
    state->sweepSelection = Ids{"caches"};
    CleanupItem expected = state->crumbItems->at(1);
    remover.immovable = {"/c/b"};
    sweep({state->crumbItems->at(1)});
    expected.bytes = 2'000'000;
    expected.action = TrashAction{{{"/c/b", 2'000'000, {}}}};
    ASSERT_THAT(idsOf(*state->crumbItems), ElementsAre("first", "caches", "last"));
    EXPECT_EQ(state->crumbItems->at(1), expected);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches"));
    EXPECT_EQ(*state->freedMB, 1.0);
    EXPECT_EQ(*state->scanPhase, ScanPhase::success);
    EXPECT_EQ(*state->sweepProblem,
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_EQ(state->history->front().summary, "1 item · 1 MB");
}

TEST_F(Sweep, CountsTheItemsThatStayedWhereOthersWent) {
    fill();
    remover.immovable = {"/l/a"};
    sweep(state->sweepItems());
    EXPECT_EQ(*state->sweepProblem, "1 item couldn’t be removed. They may be in use.");
    fill();
    remover.immovable = {"/l/a", "/c/a"};
    sweep(state->sweepItems());
    EXPECT_EQ(*state->sweepProblem, "2 items couldn’t be removed. They may be in use.");
}

TEST_F(Sweep, InWhichNothingMovesChangesNothingButItsWords) {
    fill();
    state->scanPhase = ScanPhase::done;
    state->selection = SidebarItem::sweep;
    state->freedMB = 4;
    remover.refusesEverything = failureFromErrno(EPERM, "/c/a");
    sweep(state->sweepItems());
    EXPECT_EQ(*state->sweepProblem,
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    EXPECT_EQ(*state->freedMB, 4.0);
    EXPECT_EQ(*state->lastSweptAt, std::nullopt);
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_THAT(defaults.writes, IsEmpty());
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches", "logs"));
    EXPECT_EQ(state->disk->freeBytes, 100'000'000'000);
}

TEST_F(Sweep, DoesNotTakeForGoneWhatItCouldNotLookAt) {
    state->crumbItems = {placed(trashItem("caches", safe, 5'000'000))};
    remover.refusesEverything = failureFromErrno(EIO, "/x/caches");
    files.breakAttributes("/x/caches");
    sweep(*state->crumbItems);
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches"));
    EXPECT_EQ(*state->freedMB, 0.0);
}

TEST_F(Sweep, LooksAtALinkItselfAndNotAtWhereItLeads) {
    files.addLink("/x/dangling", "/nowhere", 4);
    remover.immovable = {"/x/dangling"};
    state->crumbItems = {trashItem("dangling", safe, 5)};
    sweep(*state->crumbItems);
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("dangling"));
}

TEST_F(Sweep, ClearsAnOldProblemAndSetsNoneWhereAllWent) {
    fill();
    state->sweepProblem = "old";
    sweep(state->sweepItems());
    EXPECT_EQ(*state->sweepProblem, std::nullopt);
}

}  // namespace
}  // namespace morvane
