#include <cerrno>

#include "core/store_test.h"

namespace morvane {
namespace {

class Uninstall : public StoreTest {
protected:
    const Path bundle = "/Applications/Editor.app";
    const Path caches = library("Caches/com.acme.Editor");
    const Path agent = library("LaunchAgents/com.acme.Editor.plist");
    InstalledApp editor{.url = bundle,
                        .bundleID = "com.acme.Editor",
                        .name = "Editor",
                        .version = "1.0",
                        .parts = {{"Application", bundle, 70'000'000},
                                  {"Caches", caches, 4'000'000},
                                  {launchAgentsKind, agent, 500'000}}};
    InstalledApp viewer{.url = "/Applications/Viewer.app",
                        .name = "Viewer",
                        .parts = {{"Application", "/Applications/Viewer.app", 10}}};

    Uninstall() {
        start();
        placed(editor);
        placed(viewer);
        state->apps = {viewer, editor};
        state->selectedAppID = bundle.native();
    }
    void run(std::uint64_t process) {
        system.workspace.running.push_back({"com.acme.Editor", bundle, process});
    }
    void uninstall() {
        state->uninstall(editor);
        finishWork();
    }
    [[nodiscard]] std::string failure() const {
        const auto* failed = std::get_if<RemovalFailed>(&**state->uninstallResult);
        return failed == nullptr ? "" : failed->message;
    }
    [[nodiscard]] Texts appNames() const {
        Texts names;
        for (const InstalledApp& app : *state->apps) names.push_back(app.name);
        return names;
    }
};

TEST_F(Uninstall, RemovesTheAppWithEverythingItKeeps) {
    uninstall();
    EXPECT_THAT(remover.recycled, ElementsAre(ElementsAre(bundle, caches, agent)));
    EXPECT_EQ(*state->uninstallResult, UninstallResult(UninstallRemoved{"Editor", 74.5, true}));
    EXPECT_THAT(appNames(), ElementsAre("Viewer"));
    EXPECT_EQ(*state->selectedAppID, "/Applications/Viewer.app");
    EXPECT_EQ(state->history->front().summary, "Uninstalled Editor · 75 MB");
    EXPECT_THAT(state->history->front().trashed, SizeIs(3));
    EXPECT_FALSE(*state->isUninstalling);
    EXPECT_EQ(state->disk->freeBytes, 100'000'000'000);
    EXPECT_EQ(*state->lastSweptAt, std::nullopt);
}

TEST_F(Uninstall, UnloadsItsLaunchAgentsBeforeAnythingMoves) {
    bool ranFirst = false;
    remover.whileRemoving = [&] { ranFirst = system.processes.runs().size() == 1; };
    uninstall();
    EXPECT_TRUE(ranFirst);
    ASSERT_THAT(system.processes.runs(), SizeIs(1));
    EXPECT_THAT(system.processes.runs()[0].commandLine,
                ElementsAre("/bin/launchctl", "bootout", "gui/501", agent.native()));
}

TEST_F(Uninstall, TakesOnlyTheExactKindForALaunchAgent) {
    editor.parts[2].kind = "launch agents";
    uninstall();
    EXPECT_THAT(system.processes.runs(), IsEmpty());
    EXPECT_EQ(failure(), "");
}

TEST_F(Uninstall, WithNothingTickedChangesNothing) {
    state->excludedAppParts = Ids{bundle, caches, agent};
    state->uninstallResult = UninstallResult(RemovalFailed{"old"});
    state->uninstall(editor);
    EXPECT_FALSE(*state->isUninstalling);
    EXPECT_EQ(failure(), "old");
    EXPECT_TRUE(state->isIdle());
    EXPECT_THAT(*state->excludedAppParts, SizeIs(3));
}

TEST_F(Uninstall, OfLeftoversLeavesTheRunningAppAlone) {
    run(7);
    state->excludedAppParts = Ids{bundle.native(), "/other"};
    uninstall();
    EXPECT_THAT(system.workspace.asked, IsEmpty());
    EXPECT_THAT(remover.recycled, ElementsAre(ElementsAre(caches, agent)));
    EXPECT_EQ(*state->uninstallResult, UninstallResult(UninstallRemoved{"Editor", 4.5, false}));
    EXPECT_EQ(state->history->front().summary, "Editor leftovers · 5 MB");
    EXPECT_THAT(appNames(), ElementsAre("Viewer", "Editor"));
    ASSERT_THAT(state->apps->at(1).parts, SizeIs(1));
    EXPECT_EQ(state->apps->at(1).parts[0].url, bundle);
    EXPECT_EQ(*state->selectedAppID, bundle.native());
    EXPECT_THAT(*state->excludedAppParts, ElementsAre("/other"));
}

TEST_F(Uninstall, LeavesAnUntickedAgentLoadedAndInItsPlace) {
    state->excludedAppParts = Ids{agent};
    uninstall();
    EXPECT_THAT(system.processes.runs(), IsEmpty());
    EXPECT_TRUE(stands(agent));
    EXPECT_THAT(appNames(), ElementsAre("Viewer"));
    EXPECT_EQ(*state->uninstallResult, UninstallResult(UninstallRemoved{"Editor", 74.0, true}));
    EXPECT_THAT(*state->excludedAppParts, IsEmpty());
}

TEST_F(Uninstall, AsksEveryInstanceToQuitOnceByIdentifierOrByPlace) {
    run(7);
    system.workspace.running.push_back({"com.acme.Editor", "/Users/sam/Copy.app", 8});
    system.workspace.running.push_back({std::nullopt, "/Applications/./Editor.app/", 9});
    system.workspace.running.push_back({"com.acme.Viewer", "/Applications/Viewer.app", 10});
    system.workspace.running.push_back({std::nullopt, std::nullopt, 11});
    uninstall();
    EXPECT_THAT(system.workspace.asked, ElementsAre(7, 8, 9));
    EXPECT_EQ(failure(), "");
}

TEST_F(Uninstall, WithoutAnIdentifierFindsItsProcessesByPlaceAlone) {
    editor.bundleID = std::nullopt;
    run(7);
    system.workspace.running.push_back({std::nullopt, "/Applications/Viewer.app", 8});
    system.workspace.running.push_back({"", std::nullopt, 9});
    uninstall();
    EXPECT_THAT(system.workspace.asked, ElementsAre(7));
}

TEST_F(Uninstall, GoesOnAsSoonAsTheAppHasQuit) {
    run(7);
    system.workspace.refusesToQuit = {7};
    state->uninstall(editor);
    loop.advance(9799ms);
    EXPECT_TRUE(*state->isUninstalling);
    EXPECT_THAT(remover.recycled, IsEmpty());
    system.workspace.running.clear();
    finishWork();
    EXPECT_EQ(loop.now(), system.now + 9800ms);
    EXPECT_THAT(appNames(), ElementsAre("Viewer"));
}

TEST_F(Uninstall, LooksOnceMoreAfterTheFiftiethSleep) {
    run(7);
    system.workspace.refusesToQuit = {7};
    state->uninstall(editor);
    loop.advance(9999ms);
    system.workspace.running.clear();
    finishWork();
    EXPECT_EQ(loop.now(), system.now + 10s);
    EXPECT_EQ(failure(), "");
}

TEST_F(Uninstall, OfAnAppThatRefusesToQuitTouchesNothing) {
    run(7);
    system.workspace.refusesToQuit = {7};
    state->excludedAppParts = Ids{caches};
    uninstall();
    EXPECT_EQ(loop.now(), system.now + 10s);
    EXPECT_THAT(system.workspace.asked, ElementsAre(7));
    EXPECT_EQ(failure(), "Editor didn’t quit. Quit it yourself, then try again.");
    EXPECT_FALSE(*state->isUninstalling);
    EXPECT_THAT(remover.recycled, IsEmpty());
    EXPECT_THAT(system.processes.runs(), IsEmpty());
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_THAT(*state->excludedAppParts, ElementsAre(caches.native()));
    EXPECT_THAT(appNames(), ElementsAre("Viewer", "Editor"));
}

TEST_F(Uninstall, CountsWhatHadVanishedBefore) {
    files.remove(caches);
    uninstall();
    EXPECT_EQ(*state->uninstallResult, UninstallResult(UninstallRemoved{"Editor", 74.5, true}));
    EXPECT_THAT(state->history->front().trashed, SizeIs(2));
}

TEST_F(Uninstall, OfWhichOnlyPartWentSaysHowMuch) {
    remover.immovable = {bundle};
    state->excludedAppParts = Ids{"/other"};
    uninstall();
    EXPECT_EQ(failure(), "Moved 2 of 3 items. The rest couldn’t be removed.");
    EXPECT_EQ(state->history->front().summary, "Editor leftovers · 5 MB");
    EXPECT_THAT(appNames(), ElementsAre("Viewer", "Editor"));
    EXPECT_THAT(state->apps->at(1).parts, SizeIs(1));
    EXPECT_EQ(*state->selectedAppID, bundle.native());
}

TEST_F(Uninstall, WhoseBundleWentTakesTheAppOutThoughSomethingStayed) {
    remover.immovable = {caches};
    uninstall();
    EXPECT_EQ(failure(), "Moved 2 of 3 items. The rest couldn’t be removed.");
    EXPECT_THAT(appNames(), ElementsAre("Viewer"));
    EXPECT_EQ(state->history->front().summary, "Uninstalled Editor · 71 MB");
}

TEST_F(Uninstall, TicksAllPartsAgainAfterAPartialRemoval) {
    remover.immovable = {bundle};
    state->excludedAppParts = Ids{caches.native(), "/other"};
    uninstall();
    EXPECT_EQ(failure(), "Moved 1 of 2 items. The rest couldn’t be removed.");
    EXPECT_THAT(*state->excludedAppParts, ElementsAre("/other"));
    EXPECT_THAT(state->selectedParts(state->apps->at(1)), SizeIs(2));
}

TEST_F(Uninstall, InWhichNothingMovedSaysWhy) {
    remover.refusesEverything = failureFromErrno(EPERM, bundle);
    uninstall();
    EXPECT_EQ(failure(), "Couldn’t move Editor to the Trash. macOS does not allow it.");
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_THAT(state->apps->at(1).parts, SizeIs(3));
    EXPECT_FALSE(*state->isUninstalling);
}

TEST_F(Uninstall, InWhichNothingMovedForNoReasonSaysSo) {
    remover.refusesEverything = failureFromErrno(EPERM, bundle);
    remover.reportsNoError = true;
    uninstall();
    EXPECT_EQ(failure(), "Couldn’t move Editor to the Trash. Nothing was moved.");
}

TEST_F(Uninstall, SpeaksOfDeletingWhereTheTrashIsNotUsed) {
    state->alwaysUseTrash = false;
    remover.refusesEverything = failureFromErrno(EPERM, bundle);
    uninstall();
    EXPECT_EQ(failure(), "Couldn’t delete Editor. macOS does not allow it.");
    remover.refusesEverything.reset();
    remover.immovable = {bundle};
    uninstall();
    EXPECT_EQ(failure(), "Deleted 2 of 3 items. The rest couldn’t be removed.");
}

TEST_F(Uninstall, OfWhatWasDeletedOutrightCannotBePutBack) {
    state->alwaysUseTrash = false;
    uninstall();
    EXPECT_THAT(remover.removed, ElementsAre(ElementsAre(bundle, caches, agent)));
    EXPECT_THAT(state->history->front().trashed, IsEmpty());
    EXPECT_EQ(state->historyState(state->history->front()), HistoryState::deleted);
}

TEST_F(Uninstall, SelectsTheFirstAppOnViewOrNone) {
    state->apps = {editor};
    uninstall();
    EXPECT_EQ(*state->selectedAppID, std::nullopt);
}

TEST_F(Uninstall, TakesEveryEntryOfTheSameBundleOut) {
    state->apps = {editor, viewer, editor};
    uninstall();
    EXPECT_THAT(appNames(), ElementsAre("Viewer"));
}

TEST_F(Uninstall, KeepsOutASecondOneWhileTheAppQuits) {
    run(7);
    system.workspace.refusesToQuit = {7};
    state->uninstallResult = UninstallResult(RemovalFailed{"old"});
    state->uninstall(editor);
    EXPECT_EQ(*state->uninstallResult, std::nullopt);
    EXPECT_TRUE(*state->isUninstalling);
    loop.advance(5s);
    state->uninstall(viewer);
    finishWork();
    EXPECT_TRUE(stands("/Applications/Viewer.app"));
}

TEST_F(Uninstall, TakesAnAppByTheExactEndingOfItsPath) {
    editor.parts[0].url = "/Applications/Editor.APP";
    files.addFile("/Applications/Editor.APP", 70'000'000);
    run(7);
    uninstall();
    EXPECT_THAT(system.workspace.asked, IsEmpty());
    EXPECT_EQ(*state->uninstallResult, UninstallResult(UninstallRemoved{"Editor", 74.5, false}));
    EXPECT_THAT(appNames(), ElementsAre("Viewer", "Editor"));
}

TEST_F(Uninstall, AnimatesTheAppAwayButNotItsParts) {
    loop.runReady();
    ChangedFields seen;
    const auto subscription = state->store().observe([&](const ChangedFields& changed) {
        if (changed.contains("apps")) seen = changed;
    });
    state->excludedAppParts = Ids{bundle};
    uninstall();
    EXPECT_FALSE(seen["apps"]);
    editor.parts.resize(1);
    uninstall();
    EXPECT_TRUE(seen["apps"]);
}

}  // namespace
}  // namespace morvane
