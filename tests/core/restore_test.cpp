#include "core/store_test.h"

namespace morvane {
namespace {

class Restore : public StoreTest {
protected:
    Restore() { start(); }
    // Remembers a sweep of files that lie in the Trash under their names.
    HistoryEntry swept(const Paths& originals) {
        MovedItems moved;
        for (const Path& original : originals) {
            const Path place = trash(original.filename().native());
            files.addFile(place, 10);
            moved[original] = place;
        }
        state->recordSweep("1 item · 5 MB", moved);
        state->appsScannedAt = system.now;
        state->filesScannedAt = system.now;
        state->storageScannedAt = system.now;
        defaults.writes.clear();
        return state->history->front();
    }
    [[nodiscard]] const HistoryEntry& entry() const { return state->history->front(); }
    [[nodiscard]] std::string problem() const {
        const auto found = state->restoreProblem->find(entry().id);
        return found == state->restoreProblem->end() ? "" : found->second;
    }
};

TEST_F(Restore, MovesEverythingBack) {
    const HistoryEntry made = swept({"/a/one", "/b/two"});
    EXPECT_EQ(state->historyState(made), HistoryState::restorable);
    state->restore(made);
    EXPECT_TRUE(stands("/a/one"));
    EXPECT_TRUE(stands("/b/two"));
    EXPECT_FALSE(stands(trash("one")));
    EXPECT_TRUE(entry().restored);
    EXPECT_THAT(entry().trashed, IsEmpty());
    EXPECT_EQ(state->historyState(entry()), HistoryState::putBack);
    EXPECT_EQ(problem(), "");
    EXPECT_EQ(defaults.writtenKeys(), (Texts{"sweepHistory"}));
}

TEST_F(Restore, MakesTheScreensScanAgainAndLooksAtTheFreeSpace) {
    state->scannedAt = system.now;
    state->restore(swept({"/a/one"}));
    EXPECT_EQ(*state->appsScannedAt, std::nullopt);
    EXPECT_EQ(*state->filesScannedAt, std::nullopt);
    EXPECT_EQ(*state->storageScannedAt, std::nullopt);
    EXPECT_EQ(*state->scannedAt, system.now);
    EXPECT_EQ(state->disk->freeBytes, 100'000'000'000);
}

TEST_F(Restore, OfWhatHasGoneFromTheTrashDrawsTheRowAnewAndNothingElse) {
    const HistoryEntry made = swept({"/a/one"});
    files.remove(trash("one"));
    EXPECT_EQ(state->historyState(made), HistoryState::emptied);
    loop.runReady();
    std::vector<ChangedFields> told;
    const auto subscription =
        state->store().observe([&](const ChangedFields& changed) { told.push_back(changed); });
    state->restore(made);
    loop.runReady();
    EXPECT_THAT(told, ElementsAre(ElementsAre(Pair("history", false))));
    EXPECT_EQ(entry(), made);
    EXPECT_EQ(problem(), "");
    EXPECT_EQ(*state->appsScannedAt, system.now);
    EXPECT_EQ(state->disk->freeBytes, 0);
}

TEST_F(Restore, PassesOverWhatWasEmptiedByHand) {
    const HistoryEntry made = swept({"/a/one", "/a/two", "/a/three"});
    files.remove(trash("two"));
    state->restore(made);
    EXPECT_TRUE(entry().restored);
    EXPECT_THAT(entry().trashed, IsEmpty());
    EXPECT_EQ(problem(), "");
    EXPECT_FALSE(stands("/a/two"));
}

TEST_F(Restore, NeverOverwritesAndSaysWhatIsInTheWay) {
    const HistoryEntry made = swept({"/a/one"});
    files.addFile("/a/one", 77);
    state->restore(made);
    EXPECT_THAT(remover.putBacks, IsEmpty());
    EXPECT_EQ(problem(), "Something new is in the way of 1 item.");
    EXPECT_FALSE(entry().restored);
    EXPECT_EQ(entry().trashed, made.trashed);
    EXPECT_EQ(state->historyState(entry()), HistoryState::restorable);

    files.remove("/a/one");
    state->restore(entry());
    EXPECT_EQ(problem(), "");
    EXPECT_TRUE(entry().restored);
    EXPECT_TRUE(stands("/a/one"));
}

TEST_F(Restore, CountsAllThatIsInTheWay) {
    const HistoryEntry made = swept({"/a/one", "/a/two", "/a/three"});
    files.addFile("/a/one", 77);
    files.addLink("/a/two", "/nowhere");
    state->restore(made);
    EXPECT_EQ(problem(), "Something new is in the way of 2 items.");
    EXPECT_THAT(entry().trashed, ElementsAre(Pair("/a/one", trash("one").native()),
                                             Pair("/a/two", trash("two").native())));
    EXPECT_TRUE(stands("/a/three"));
}

TEST_F(Restore, CountsTheBlockedAmongTheFailedWhereOneFailed) {
    const HistoryEntry made = swept({"/a/one", "/a/two"});
    files.addFile("/a/one", 77);
    remover.cannotPutBack = {"/a/two"};
    state->restore(made);
    EXPECT_EQ(problem(), "2 items couldn’t be put back.");
    EXPECT_FALSE(entry().restored);
    EXPECT_THAT(entry().trashed, SizeIs(2));
}

TEST_F(Restore, SaysWhatFailedByItself) {
    const HistoryEntry made = swept({"/a/one", "/a/two"});
    remover.cannotPutBack = {"/a/two"};
    state->restore(made);
    EXPECT_EQ(problem(), "1 item couldn’t be put back.");
    EXPECT_THAT(entry().trashed, ElementsAre(Pair("/a/two", trash("two").native())));
    EXPECT_EQ(*state->appsScannedAt, std::nullopt);
}

TEST_F(Restore, MakesTheFolderAgainInWhichItStood) {
    state->restore(swept({"/gone/deeply/one"}));
    EXPECT_TRUE(stands("/gone/deeply/one"));
}

TEST_F(Restore, GoesFromTheOutermostInwards) {
    files.addFolder(trash("folder"));
    files.addFile(trash("inner"), 5);
    state->recordSweep("2 items · 5 MB",
                       {{"/a/folder/inner", trash("inner")}, {"/a/folder", trash("folder")}});
    state->restore(entry());
    EXPECT_THAT(remover.putBacks, ElementsAre(Pair(trash("folder"), "/a/folder"),
                                              Pair(trash("inner"), "/a/folder/inner")));
    EXPECT_TRUE(entry().restored);
    EXPECT_TRUE(stands("/a/folder/inner"));
}

TEST_F(Restore, FindsNamesThatAreNoText) {
    state->restore(swept({"/a/bad\xff name"}));
    EXPECT_TRUE(stands("/a/bad\xff name"));
}

TEST_F(Restore, OfAnEntryThatIsGoneDoesNothing) {
    HistoryEntry made = swept({"/a/one"});
    made.id = "00000000-0000-4000-8000-000000000001";
    state->restore(made);
    EXPECT_FALSE(stands("/a/one"));
    EXPECT_THAT(defaults.writes, IsEmpty());
    EXPECT_EQ(*state->appsScannedAt, system.now);
}

TEST_F(Restore, LeavesTheWordsOfOtherEntriesAlone) {
    state->restoreProblem = std::map<std::string, std::string>{{"other", "words"}};
    state->restore(swept({"/a/one"}));
    EXPECT_THAT(*state->restoreProblem, ElementsAre(Pair("other", "words")));
}

TEST_F(Restore, TakesThePanelsUndoAway) {
    const HistoryEntry made = swept({"/a/one", "/a/two"});
    state->menuBarTrashed = MovedItems{{"/a/two", trash("two")}, {"/z", trash("z")}};
    state->menuBarPhase = MenuBarPhase::done;
    state->restore(made);
    EXPECT_THAT(*state->menuBarTrashed, IsEmpty());
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::idle);
}

TEST_F(Restore, LeavesThePanelsUndoOfAnotherSweep) {
    const HistoryEntry made = swept({"/a/one"});
    state->menuBarTrashed = MovedItems{{"/z", trash("z")}};
    state->menuBarPhase = MenuBarPhase::done;
    state->restore(made);
    EXPECT_THAT(*state->menuBarTrashed, SizeIs(1));
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::done);
}

class Undo : public Restore {
protected:
    void sweepFromPanel() {
        files.addFile(library("Caches/Acme/data"), 3'000'000);
        state->crumbItems = {
            trashItem("caches", Safety::safe, {{library("Caches/Acme"), 3'000'000}})};
        state->sweepFromMenuBar();
        finishWork();
        ASSERT_EQ(*state->menuBarPhase, MenuBarPhase::done);
        ASSERT_FALSE(stands(library("Caches/Acme")));
    }
};

TEST_F(Undo, PutsBackAndBringsTheItemsIntoTheLists) {
    sweepFromPanel();
    state->undoMenuBarSweep();
    EXPECT_TRUE(stands(library("Caches/Acme/data")));
    EXPECT_EQ(*state->menuBarPhase, MenuBarPhase::idle);
    EXPECT_EQ(*state->menuBarSweptMB, 0.0);
    EXPECT_THAT(*state->menuBarTrashed, IsEmpty());
    EXPECT_THAT(*state->crumbItems, IsEmpty());
    finishWork();
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches"));
    EXPECT_EQ(*state->scannedAt, std::nullopt);
}

TEST_F(Undo, MarksTheEntryAndKeepsItsPaths) {
    sweepFromPanel();
    const HistoryEntry made = entry();
    state->undoMenuBarSweep();
    EXPECT_TRUE(entry().restored);
    EXPECT_EQ(entry().trashed, made.trashed);
    EXPECT_EQ(state->historyState(entry()), HistoryState::putBack);
}

TEST_F(Undo, ReadsPutBackEvenWhereItFailed) {
    sweepFromPanel();
    files.addFile(library("Caches/Acme"), 1);
    state->undoMenuBarSweep();
    EXPECT_TRUE(entry().restored);
    EXPECT_EQ(state->historyState(entry()), HistoryState::putBack);
    EXPECT_TRUE(stands(trash("Acme")));
    EXPECT_THAT(*state->restoreProblem, IsEmpty());
}

TEST_F(Undo, MarksTheNewestEntryThatHoldsOneOfItsItems) {
    swept({"/a/one"});
    swept({"/a/one", "/a/two"});
    state->recordSweep("newest, deleted right away", {});
    state->menuBarTrashed = MovedItems{{"/a/one", trash("one")}};
    state->undoMenuBarSweep();
    EXPECT_FALSE(state->history->at(0).restored);
    EXPECT_TRUE(state->history->at(1).restored);
    EXPECT_FALSE(state->history->at(2).restored);
}

TEST_F(Undo, OfASweepNobodyRemembersMarksNothing) {
    swept({"/a/one"});
    files.addFile(trash("z"), 5);
    state->menuBarTrashed = MovedItems{{"/z", trash("z")}};
    state->undoMenuBarSweep();
    EXPECT_TRUE(stands("/z"));
    EXPECT_FALSE(entry().restored);
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Restore, LeavesALaterSweepWhatLiesUnderAnEmptiedName) {
    const HistoryEntry emptied = swept({"/a/log"});
    files.remove(trash("log"));
    const HistoryEntry later = swept({"/b/log"});
    EXPECT_EQ(state->historyState(emptied), HistoryState::emptied);
    EXPECT_EQ(state->historyState(later), HistoryState::restorable);
    state->restore(emptied);
    EXPECT_FALSE(stands("/a/log"));
    EXPECT_TRUE(stands(trash("log")));
    state->restore(later);
    EXPECT_TRUE(stands("/b/log"));
    EXPECT_EQ(state->historyState(emptied), HistoryState::emptied);
}

TEST_F(Undo, LeavesALaterSweepWhatLiesUnderAnEmptiedName) {
    swept({"/a/log", "/a/kept"});
    state->menuBarTrashed = MovedItems{{"/a/log", trash("log")}, {"/a/kept", trash("kept")}};
    files.remove(trash("log"));
    swept({"/b/log"});
    state->undoMenuBarSweep();
    EXPECT_FALSE(stands("/a/log"));
    EXPECT_TRUE(stands("/a/kept"));
    EXPECT_TRUE(stands(trash("log")));
    EXPECT_FALSE(state->history->at(0).restored);
    EXPECT_TRUE(state->history->at(1).restored);
}

TEST_F(Restore, TellsTheStatesApartInThisOrder) {
    files.addFile("/t/a", 1);
    HistoryEntry made{.trashed = {{"/a", "/t/a"}, {"/b", "/t/b"}}, .restored = true};
    EXPECT_EQ(state->historyState(made), HistoryState::putBack);
    made.restored = false;
    EXPECT_EQ(state->historyState(made), HistoryState::restorable);
    files.breakAttributes("/t/a");
    EXPECT_EQ(state->historyState(made), HistoryState::restorable);
    files.remove("/t/a");
    EXPECT_EQ(state->historyState(made), HistoryState::emptied);
    made.trashed.clear();
    EXPECT_EQ(state->historyState(made), HistoryState::deleted);
    made.restored = true;
    EXPECT_EQ(state->historyState(made), HistoryState::putBack);
}

}  // namespace
}  // namespace morvane
