#include "core/sweep_fixture.h"

namespace morvane {
namespace {

using enum Safety;

TEST_F(Sweep, MovesTheWholeSelectionInOneCall) {
    fill();
    sweep(state->sweepItems());
    EXPECT_THAT(remover.recycled, ElementsAre(ElementsAre("/c/a", "/c/b", "/l/a", "/b/a")));
    EXPECT_THAT(remover.removed, IsEmpty());
    EXPECT_FALSE(stands("/c/a"));
    EXPECT_TRUE(stands(trash("b")));
}

TEST_F(Sweep, TakesOutWhatWentAndShowsTheSuccess) {
    fill();
    state->selection = SidebarItem::sweep;
    sweep({state->crumbItems->at(0), state->backupItems->at(0)});
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("logs"));
    EXPECT_THAT(*state->backupItems, IsEmpty());
    EXPECT_THAT(*state->sweepSelection, ElementsAre("logs"));
    EXPECT_EQ(*state->freedMB, 6.0);
    EXPECT_EQ(*state->lastSweptAt, system.now);
    EXPECT_EQ(*state->scanPhase, ScanPhase::success);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_EQ(*state->sweepProblem, std::nullopt);
    EXPECT_FALSE(*state->isSweeping);
    EXPECT_EQ(state->disk->freeBytes, 100'000'000'000);
}

TEST_F(Sweep, RemembersWhatItMovedAndWhen) {
    fill();
    sweep({state->crumbItems->at(0), state->backupItems->at(0)});
    ASSERT_THAT(*state->history, SizeIs(1));
    const HistoryEntry& entry = state->history->front();
    EXPECT_EQ(entry.summary, "2 items · 6 MB");
    EXPECT_EQ(entry.date, system.now);
    EXPECT_FALSE(entry.restored);
    EXPECT_THAT(entry.trashed, ElementsAre(Pair("/b/a", "/Users/sam/.Trash/a 2"),
                                           Pair("/c/a", "/Users/sam/.Trash/a"),
                                           Pair("/c/b", "/Users/sam/.Trash/b")));
    EXPECT_EQ(defaults.writtenKeys(), (Texts{"lastSweptAt", "sweepHistory"}));
    EXPECT_EQ(state->historyState(entry), HistoryState::restorable);
}

TEST_F(Sweep, IsNamedByItsLabel) {
    fill();
    sweep({state->crumbItems->at(1)}, "Developer sweep");
    EXPECT_EQ(state->history->front().summary, "Developer sweep · 500 KB");
}

TEST_F(Sweep, HandsOnTheFolderInWhichEachItemWasSeen) {
    CleanupItem item = placed(trashItem("a", safe, 5));
    std::get<TrashAction>(item.action).parts[0].folder = {3, 77};
    sweep({item});
    ASSERT_THAT(remover.targets, SizeIs(1));
    EXPECT_EQ(remover.targets[0].folder, (FolderIdentity{3, 77}));
}

TEST_F(Sweep, DeletesOutrightWhereTheTrashIsNotUsed) {
    fill();
    state->alwaysUseTrash = false;
    sweep(state->sweepItems());
    EXPECT_THAT(remover.removed, ElementsAre(ElementsAre("/c/a", "/c/b", "/l/a", "/b/a")));
    EXPECT_THAT(remover.recycled, IsEmpty());
    EXPECT_EQ(*state->freedMB, 6.5);
    ASSERT_THAT(*state->history, SizeIs(1));
    EXPECT_THAT(state->history->front().trashed, IsEmpty());
    EXPECT_EQ(state->historyState(state->history->front()), HistoryState::deleted);
}

TEST_F(Sweep, OfNothingDoesNothing) {
    state->sweepProblem = "old";
    state->sweep({}, std::nullopt);
    EXPECT_FALSE(*state->isSweeping);
    EXPECT_EQ(*state->sweepProblem, "old");
    EXPECT_TRUE(state->isIdle());
}

TEST_F(Sweep, OfNoBytesLeavesThePhaseAndRecordsNothing) {
    state->crumbItems = {placed(trashItem("none", safe, 0))};
    state->selection = SidebarItem::sweep;
    sweep(*state->crumbItems);
    EXPECT_THAT(*state->crumbItems, IsEmpty());
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    EXPECT_EQ(*state->freedMB, 0.0);
    EXPECT_EQ(*state->lastSweptAt, std::nullopt);
    EXPECT_EQ(*state->sweepProblem, std::nullopt);
    EXPECT_THAT(*state->history, IsEmpty());
}

TEST_F(Sweep, CountsWhatHasVanishedByOtherMeans) {
    state->crumbItems = {trashItem("caches", safe, 5'000'000)};
    sweep(*state->crumbItems);
    EXPECT_EQ(*state->freedMB, 5.0);
    EXPECT_THAT(state->history->front().trashed, IsEmpty());
    EXPECT_EQ(state->history->front().summary, "1 item · 5 MB");
}

TEST_F(Sweep, TakesAnItemWithoutPartsForRemoved) {
    state->crumbItems = {trashItem("empty", safe, Parts{})};
    sweep(*state->crumbItems);
    EXPECT_THAT(*state->crumbItems, IsEmpty());
    EXPECT_THAT(remover.recycled, IsEmpty());
}

TEST_F(Sweep, KeepsOutASecondOne) {
    fill();
    ThreadGate gate;
    remover.whileRemoving = [&] { gate.pass(); };
    state->sweepProblem = "old";
    state->sweep({state->crumbItems->at(0)}, std::nullopt);
    EXPECT_TRUE(*state->isSweeping);
    EXPECT_EQ(*state->sweepProblem, std::nullopt);
    state->sweep({state->crumbItems->at(1)}, std::nullopt);
    state->sweepFromMenuBar();
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::idle);
    loop.runReady();
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches", "logs"));
    gate.open();
    finishWork();
    EXPECT_THAT(remover.recycled, SizeIs(1));
    EXPECT_TRUE(stands("/l/a"));
}

TEST_F(Sweep, AnimatesTheListsTheHistoryAndThePhase) {
    fill();
    loop.runReady();
    ChangedFields seen;
    const auto subscription = state->store().observe([&](const ChangedFields& changed) {
        if (changed.contains("crumbItems")) seen = changed;
    });
    sweep({state->crumbItems->at(0)});
    EXPECT_THAT(seen, testing::IsSupersetOf({Pair("crumbItems", true), Pair("history", true),
                                             Pair("disk", true), Pair("scanPhase", true),
                                             Pair("isSweeping", false), Pair("freedMB", false),
                                             Pair("sweepSelection", false)}));
}

}  // namespace
}  // namespace morvane
