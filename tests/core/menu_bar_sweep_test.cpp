#include <cerrno>

#include "core/sweep_fixture.h"

namespace morvane {
namespace {

using enum Safety;

class MenuBarSweep : public Sweep {};

TEST_F(MenuBarSweep, TakesAllThatAsksForNoReviewWhateverIsChosen) {
    fill();
    state->sweepSelection = Ids{"backup:a"};
    state->scanPhase = ScanPhase::done;
    state->selection = SidebarItem::sweep;
    state->sweepFromMenuBar();
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::sweeping);
    EXPECT_TRUE(*state->isSweeping);
    finishWork();
    EXPECT_THAT(remover.recycled, ElementsAre(ElementsAre("/c/a", "/c/b", "/l/a")));
    EXPECT_FALSE(*state->isSweeping);
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::done);
    EXPECT_EQ(*state->menuBarSweptMB, 3.5);
    EXPECT_THAT(*state->menuBarTrashed,
                ElementsAre(Pair("/c/a", trash("a")), Pair("/c/b", trash("b")),
                            Pair("/l/a", trash("a 2"))));
    EXPECT_EQ(state->history->front().summary, "2 items · 4 MB");
    EXPECT_EQ(*state->lastSweptAt, system.now);
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    EXPECT_EQ(*state->freedMB, 0.0);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("backup:a"));
}

TEST_F(MenuBarSweep, InWhichNothingMovesEndsIdleWithoutAWord) {
    fill();
    state->menuBarSweptMB = 9;
    state->sweepProblem = "old";
    remover.refusesEverything = failureFromErrno(EPERM, "/c/a");
    state->sweepFromMenuBar();
    EXPECT_EQ(*state->menuBarSweptMB, 0.0);
    finishWork();
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::idle);
    EXPECT_EQ(*state->menuBarSweptMB, 0.0);
    EXPECT_EQ(*state->sweepProblem, "old");
    EXPECT_THAT(*state->menuBarTrashed, IsEmpty());
    EXPECT_THAT(*state->history, IsEmpty());
}

TEST_F(MenuBarSweep, OfNothingSafeDoesNothing) {
    state->backupItems = {placed(trashItem("backup:a", review, 5))};
    state->menuBarPhase = MenuBarPhase::done;
    state->menuBarSweptMB = 9;
    state->sweepFromMenuBar();
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::done);
    EXPECT_EQ(*state->menuBarSweptMB, 9.0);
    EXPECT_FALSE(*state->isSweeping);
}

TEST_F(MenuBarSweep, KeepsOutAGuardedOne) {
    fill();
    ThreadGate gate;
    remover.whileRemoving = [&] { gate.pass(); };
    state->sweepFromMenuBar();
    state->sweep(*state->backupItems, std::nullopt);
    gate.open();
    finishWork();
    EXPECT_THAT(remover.recycled, SizeIs(1));
    EXPECT_TRUE(stands("/b/a"));
}

TEST_F(MenuBarSweep, HasNothingToPutBackWhereItDeletedOutright) {
    fill();
    state->alwaysUseTrash = false;
    state->sweepFromMenuBar();
    finishWork();
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::done);
    EXPECT_THAT(*state->menuBarTrashed, IsEmpty());
}

}  // namespace
}  // namespace morvane
