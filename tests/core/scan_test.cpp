#include "core/store_test.h"

namespace morvane {
namespace {

using Scan = ScanTest;
using enum ScanCategory;

constexpr auto npmCache = "pkg:.npm/_cacache";

TEST_F(Scan, BeginsBeforeAnythingIsLookedAt) {
    fillDisk();
    start();
    state->selection = SidebarItem::large;
    state->sweepProblem = "1 item couldn’t be removed. They may be in use.";
    state->finishedCategories = std::set{crumbs};
    state->startScan(true);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    EXPECT_THAT(*state->finishedCategories, IsEmpty());
    EXPECT_EQ(*state->sweepProblem, std::nullopt);
    EXPECT_TRUE(state->scanTask.isAtWork());
    EXPECT_TRUE(state->locationTask.isAtWork());
}

TEST_F(Scan, PublishesEveryCategoryAndEndsDone) {
    fillDisk();
    grantAccess();
    start();
    scan();
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches"));
    EXPECT_THAT(idsOf(*state->downloadItems), ElementsAre("otherInstallers"));
    EXPECT_THAT(idsOf(state->devItems()), ElementsAre(npmCache));
    EXPECT_THAT(idsOf(*state->leftoverItems), ElementsAre("leftover:com.gone.App"));
    EXPECT_THAT(idsOf(*state->backupItems), ElementsAre("backup:ABC"));
    ASSERT_THAT(*state->files, SizeIs(1));
    EXPECT_EQ(state->files->front().url, "/Users/sam/Movies/film.mp4");
    EXPECT_THAT(*state->finishedCategories,
                ElementsAre(crumbs, developer, leftovers, largeFiles, backups));
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
    EXPECT_EQ(*state->scannedAt, system.now);
    EXPECT_EQ(*state->lastScanAt, system.now);
}

TEST_F(Scan, AddsUpWhatEachCategoryHolds) {
    fillDisk();
    grantAccess();
    start();
    scan();
    EXPECT_EQ(state->categoryMB(crumbs), 8.0);
    EXPECT_EQ(state->categoryMB(developer), 11.0);
    EXPECT_EQ(state->categoryMB(leftovers), 2.0);
    EXPECT_EQ(state->categoryMB(largeFiles), 200.0);
    EXPECT_EQ(state->categoryMB(backups), 7.0);
    EXPECT_EQ(state->foundSoFarMB(), 228.0);
}

TEST_F(Scan, ChoosesWhatAsksForNoReview) {
    fillDisk();
    grantAccess();
    start();
    state->sweepSelection = Ids{"backup:ABC"};
    state->devSelection = Ids{"gone"};
    scan();
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches"));
    EXPECT_THAT(*state->devSelection, ElementsAre(npmCache));
}

TEST_F(Scan, EndsEmptyWhereNothingCouldGo) {
    grantAccess();
    start();
    scan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::empty);
    EXPECT_THAT(*state->finishedCategories, SizeIs(5));
    EXPECT_EQ(*state->devSections, std::vector<DevSection>{});
    EXPECT_EQ(*state->scannedAt, system.now);
}

TEST_F(Scan, WithoutAccessTouchesNeitherDownloadsNorBackupsAndFinishesThem) {
    fillDisk();
    start();
    scan();
    EXPECT_THAT(*state->downloadItems, IsEmpty());
    EXPECT_THAT(*state->backupItems, IsEmpty());
    EXPECT_TRUE(hasFinished(crumbs));
    EXPECT_TRUE(hasFinished(backups));
    EXPECT_FALSE(files.wasAsked("list /Users/sam/Downloads"));
    EXPECT_FALSE(files.wasAsked("list /Users/sam/Library/Application Support/MobileSync/Backup"));
}

TEST_F(Scan, EndsDoneForOldLargeFilesAlone) {
    files.addFile(home("Movies/film.mp4"), 200'000'000, system.now - 24h * 360);
    start();
    scan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
    EXPECT_EQ(state->categoryMB(largeFiles), 200.0);
}

TEST_F(Scan, EndsEmptyForYoungLargeFilesWhichAreListedAllTheSame) {
    files.addFile(home("Movies/film.mp4"), 200'000'000, system.now - (24h * 360 - 1s));
    start();
    state->fileMinMonths = 0;
    scan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::empty);
    EXPECT_EQ(state->categoryMB(largeFiles), 0.0);
    EXPECT_THAT(*state->files, SizeIs(1));
    EXPECT_TRUE(hasFinished(largeFiles));
}

TEST_F(Scan, OfNothingButReviewItemsEndsDoneWithNothingChosen) {
    files.addFile(library("Application Support/com.gone.App/data"), 2'000'000);
    start();
    scan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
    EXPECT_THAT(*state->sweepSelection, IsEmpty());
    EXPECT_EQ(state->activePreset(), SweepPreset::nothing);
}

TEST_F(Scan, LooksAtMegabytesAndNotAtTheNumberOfItems) {
    start();
    state->scannedAt = system.now;
    state->crumbItems = {trashItem("none", Safety::safe, 0)};
    state->settleScanPhase();
    EXPECT_EQ(*state->scanPhase, ScanPhase::empty);
    state->backupItems = {trashItem("one", Safety::review, 1)};
    state->settleScanPhase();
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
}

TEST_F(Scan, LeavesTheCachesOfOpenApplicationsAlone) {
    files.addFile(library("Caches/Google/Chrome/data"), 4'000'000);
    files.addFile(library("Caches/com.apple.Safari/data"), 1'000'000);
    system.workspace.running = {{"com.google.Chrome", "/Applications/Chrome.app", 7},
                                {std::nullopt, "/usr/bin/tool", 8}};
    start();
    scan();
    ASSERT_THAT(idsOf(*state->crumbItems), ElementsAre("browsers"));
    EXPECT_EQ(state->crumbItems->front().bytes, 1'000'000);
}

TEST_F(Scan, TellsInstallersByTheNamesOfInstalledApplications) {
    fillDisk();
    grantAccess();
    files.addFolder("/Applications/Setup.app");
    start();
    scan();
    EXPECT_THAT(idsOf(*state->downloadItems), ElementsAre("installers"));
}

TEST_F(Scan, LeavesOutWhatLiesInAnIgnoredFolder) {
    fillDisk();
    grantAccess();
    defaults.stored["ignoredFolders"] =
        Texts{"/Users/sam/Library", "/Users/sam/.npm", "/Users/sam/Downloads"};
    start();
    scan();
    EXPECT_THAT(state->sweepItems(), IsEmpty());
    EXPECT_EQ(*state->devSections, std::vector<DevSection>{});
    EXPECT_THAT(*state->finishedCategories, SizeIs(5));
}

TEST_F(Scan, ByItselfDoesNotMoveTheUser) {
    start();
    state->selection = SidebarItem::settings;
    state->startScan(false);
    finishWork();
    EXPECT_EQ(*state->selection, SidebarItem::settings);
}

TEST_F(Scan, KeepsOldResultsUntilTheirCategoryReplacesThem) {
    fillDisk();
    grantAccess();
    start();
    scan();
    files.remove(library("Caches/Acme"));
    files.remove(backupFolder() / "ABC");
    ThreadGate& gate = hold("list", backupFolder());
    loop.advance(1h);
    state->startScan(true);
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches"));
    runUntil([&] { return state->finishedCategories->size() == 4; });
    EXPECT_THAT(*state->crumbItems, IsEmpty());
    EXPECT_THAT(idsOf(*state->backupItems), ElementsAre("backup:ABC"));
    EXPECT_EQ(*state->scannedAt, system.now);
    EXPECT_EQ(state->foundSoFarMB(), 218.0);
    gate.open();
    finishWork();
    EXPECT_THAT(*state->backupItems, IsEmpty());
    EXPECT_EQ(*state->scannedAt, system.now + 1h);
}

TEST_F(Scan, ShowsACategoryTheMomentItEnds) {
    fillDisk();
    grantAccess();
    ThreadGate& gate = hold("attributes", library("Caches/Acme"));
    start();
    std::vector<std::size_t> sizes;
    const auto subscription = state->store().observe([&](const ChangedFields& changed) {
        if (changed.contains("finishedCategories")) {
            sizes.push_back(state->finishedCategories->size());
        }
    });
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    EXPECT_FALSE(hasFinished(crumbs));
    EXPECT_EQ(*state->scannedAt, std::nullopt);
    gate.open();
    finishWork();
    EXPECT_THAT(sizes, testing::Not(IsEmpty()));
    EXPECT_EQ(sizes.back(), 5U);
}

TEST_F(Scan, TellsItsEndInOneTurnAndAnimatesThePhaseAlone) {
    fillDisk();
    start();
    ChangedFields last;
    const auto subscription = state->store().observe([&](const ChangedFields& changed) {
        if (changed.contains("scannedAt")) last = changed;
    });
    scan();
    EXPECT_THAT(last, testing::IsSupersetOf({Pair("scannedAt", false), Pair("lastScanAt", false),
                                             Pair("scanPhase", true)}));
}

TEST_F(Scan, KeepsItsDateAndNothingElse) {
    fillDisk();
    grantAccess();
    start();
    scan();
    EXPECT_EQ(defaults.writes, (std::vector<MemoryDefaults::Write>{{"lastScanAt", {system.now}}}));
}

TEST_F(Scan, StartsFromTheSuccessCardToo) {
    start();
    state->scanPhase = ScanPhase::success;
    state->startScan(true);
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
}

TEST_F(Scan, EndOfOnboardingReturnsToTheStart) {
    start();
    state->watchForAccess();
    state->selection = SidebarItem::large;
    state->scanPhase = ScanPhase::done;
    const TaskHandle watcher = state->accessWatchTask;
    state->finishOnboarding();
    EXPECT_TRUE(watcher.isCancelled());
    EXPECT_FALSE(state->accessWatchTask);
    EXPECT_TRUE(*state->hasOnboarded);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
}

TEST_F(Scan, SaysWhenTheLastSweepWas) {
    start();
    EXPECT_EQ(state->lastSweptWords(), "Not swept yet");
    state->lastSweptAt = system.now - 24h * 3;
    EXPECT_EQ(state->lastSweptWords(), "Last swept 3 days ago");
}

}  // namespace
}  // namespace morvane
