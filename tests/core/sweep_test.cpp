#include <cerrno>

#include "core/store_test.h"

namespace morvane {
namespace {

using enum Safety;

class Sweep : public StoreTest {
protected:
    Sweep() { start(); }
    void sweep(std::vector<CleanupItem> items, std::optional<std::string> label = {}) {
        state->sweep(std::move(items), std::move(label));
        finishWork();
    }
    // Two caches of one and two parts and a backup, on the disk and all chosen.
    void fill() {
        state->crumbItems = {
            placed(trashItem("caches", safe, {{"/c/a", 1'000'000}, {"/c/b", 2'000'000}})),
            placed(trashItem("logs", safe, {{"/l/a", 500'000}}))};
        state->backupItems = {placed(trashItem("backup:a", review, {{"/b/a", 3'000'000}}))};
        state->sweepSelection = Ids{"caches", "logs", "backup:a"};
        defaults.writes.clear();
    }
    void answer(const std::string& argument, int status) {
        system.processes.answer({"/usr/bin/tool", argument}, {status, "reclaimed"});
    }
};

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

TEST_F(Sweep, OfNothingDoesNothing) {
    state->sweepProblem = "old";
    state->sweep({}, std::nullopt);
    EXPECT_FALSE(*state->isSweeping);
    EXPECT_EQ(*state->sweepProblem, "old");
    EXPECT_TRUE(state->isIdle());
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

TEST_F(Sweep, TakesAnItemWithoutPartsForRemoved) {
    state->crumbItems = {trashItem("empty", safe, Parts{})};
    sweep(*state->crumbItems);
    EXPECT_THAT(*state->crumbItems, IsEmpty());
    EXPECT_THAT(remover.recycled, IsEmpty());
}

TEST_F(Sweep, OfCommandsAloneMovesNothingAndIsRemembered) {
    state->devSections = {{devSection("dock", {commandItem("docker:images", 8'000'000, {"images"}),
                                               commandItem("docker:build", 1, {"build"})})}};
    state->devSelection = Ids{"docker:images", "docker:build"};
    answer("images", 0);
    answer("build", 0);
    sweep({state->devItems()[0]}, "Developer sweep");
    EXPECT_THAT(remover.recycled, IsEmpty());
    EXPECT_THAT(system.processes.runs(),
                ElementsAre(fakes::FakeProcesses::Run{{"/usr/bin/tool", "images"}, 600s}));
    EXPECT_THAT(idsOf(state->devItems()), ElementsAre("docker:build"));
    EXPECT_THAT(*state->devSelection, ElementsAre("docker:build"));
    EXPECT_EQ(*state->freedMB, 8.0);
    ASSERT_THAT(*state->history, SizeIs(1));
    EXPECT_EQ(state->history->front().summary, "Developer sweep · 8 MB");
    EXPECT_THAT(state->history->front().trashed, IsEmpty());
    EXPECT_EQ(state->historyState(state->history->front()), HistoryState::deleted);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_EQ(*state->scanPhase, ScanPhase::success);
}

TEST_F(Sweep, KeepsTheItemOfAFailedCommand) {
    const CleanupItem images = commandItem("docker:images", 8'000'000, {"images"});
    const CleanupItem missing = commandItem("docker:build", 5'000'000, {"build"});
    state->devSections = {{devSection("dock", {images, missing})}};
    state->devSelection = Ids{"docker:images", "docker:build"};
    answer("images", 1);
    sweep(state->devItems(), "Developer sweep");
    EXPECT_EQ(state->devItems(), (std::vector<CleanupItem>{images, missing}));
    EXPECT_THAT(*state->devSelection, ElementsAre("docker:build", "docker:images"));
    EXPECT_EQ(*state->sweepProblem,
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
}

TEST_F(Sweep, RunsCommandsInOrderAfterTheFilesWent) {
    answer("one", 0);
    answer("two", 3);
    answer("three", 0);
    bool fileWasGone = false;
    system.processes.whileRunning(
        [&](const fakes::FakeProcesses::Run&) { fileWasGone = !stands("/x/file"); });
    sweep({commandItem("one", 1, {"one"}), placed(trashItem("file", safe, 1'000'000)),
           commandItem("two", 1, {"two"}), commandItem("three", 1, {"three"})});
    std::vector<std::string> ran;
    for (const auto& run : system.processes.runs()) ran.push_back(run.commandLine.back());
    EXPECT_THAT(ran, ElementsAre("one", "two", "three"));
    EXPECT_TRUE(fileWasGone);
    EXPECT_EQ(*state->sweepProblem, "1 item couldn’t be removed. They may be in use.");
    EXPECT_EQ(state->history->front().summary, "3 items · 1 MB");
}

TEST_F(Sweep, TakesASectionWithItsLastItem) {
    state->devSections = {{devSection("dd", {placed(trashItem("dd:/a", safe, 1'000))}),
                           devSection("arc", {placed(trashItem("arc:/a", safe, 1'000))})}};
    sweep({state->devItems()[0]}, "Developer sweep");
    ASSERT_TRUE(state->devSections->has_value());
    ASSERT_THAT(**state->devSections, SizeIs(1));
    EXPECT_EQ((**state->devSections)[0].id, "arc");
    sweep(state->devItems(), "Developer sweep");
    EXPECT_EQ(*state->devSections, std::vector<DevSection>{});
}

TEST_F(Sweep, LeavesUnscannedSectionsAbsent) {
    fill();
    sweep(state->sweepItems());
    EXPECT_FALSE(state->devSections->has_value());
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

TEST_F(Sweep, ClearsAnOldProblemAndSetsNoneWhereAllWent) {
    fill();
    state->sweepProblem = "old";
    sweep(state->sweepItems());
    EXPECT_EQ(*state->sweepProblem, std::nullopt);
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

using MenuBarSweep = Sweep;

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
