#include "core/store_test.h"

namespace morvane {
namespace {

using StoppedScan = ScanTest;
using enum ScanCategory;

TEST_F(StoppedScan, BeforeAnyHasEndedReturnsToIdleThoughListsAreFilled) {
    fillDisk();
    grantAccess();
    ThreadGate& gate = hold("list", "/Users/sam");
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    state->cancelScan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_THAT(*state->finishedCategories, IsEmpty());
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches"));
    gate.open();
}

TEST_F(StoppedScan, WritesNothingMoreButWhatRunsOnByItself) {
    fillDisk();
    grantAccess();
    ThreadGate& fileScan = hold("list", "/Users/sam");
    ThreadGate& backupScan = hold("list", backupFolder());
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 3; });
    state->cancelScan();
    fileScan.open();
    backupScan.open();
    finishWork();
    EXPECT_THAT(*state->backupItems, IsEmpty());
    EXPECT_THAT(*state->finishedCategories, IsEmpty());
    EXPECT_THAT(*state->sweepSelection, IsEmpty());
    EXPECT_EQ(*state->scannedAt, std::nullopt);
    EXPECT_EQ(*state->lastScanAt, std::nullopt);
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_THAT(defaults.writes, IsEmpty());
    // The file scan is a task of its own.
    EXPECT_THAT(*state->files, SizeIs(1));
    EXPECT_EQ(*state->filesScannedAt, system.now);
    EXPECT_FALSE(*state->isScanningFiles);
}

TEST_F(StoppedScan, LetsTheDeveloperScannersReturnAndDropsWhatTheyFound) {
    fillDisk();
    ThreadGate& gate = hold("exists", home(".npm/_cacache"));
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    state->cancelScan();
    EXPECT_TRUE(*state->isScanningDeveloper);
    gate.open();
    finishWork();
    EXPECT_FALSE(*state->isScanningDeveloper);
    EXPECT_FALSE(state->devSections->has_value());
    EXPECT_THAT(*state->devSelection, IsEmpty());
}

TEST_F(StoppedScan, AfterAnEarlierOneSettlesOnAMixOfOldAndNew) {
    fillDisk();
    grantAccess();
    start();
    scan();
    files.remove(library("Caches/Acme"));
    hold("list", backupFolder());
    loop.advance(1h);
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    EXPECT_THAT(*state->crumbItems, IsEmpty());
    state->cancelScan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
    EXPECT_EQ(*state->scannedAt, system.now);
    EXPECT_EQ(*state->lastScanAt, system.now);
    EXPECT_THAT(idsOf(*state->backupItems), ElementsAre("backup:ABC"));
}

TEST_F(StoppedScan, AfterAnEarlierOneReturnsToEmptyWhereNothingIsLeft) {
    files.addFile(library("Caches/Acme/data"), 3'000'000);
    grantAccess();
    start();
    scan();
    files.remove(library("Caches/Acme"));
    files.addFolder(backupFolder());
    hold("list", backupFolder());
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    state->cancelScan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::empty);
}

TEST_F(StoppedScan, ThatNeverBeganIsNoObstacle) {
    start();
    state->cancelScan();
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
}

using ReplacedScan = ScanTest;

TEST_F(ReplacedScan, NeverPublishesWhatItFound) {
    fillDisk();
    files.addFile(backupFolder() / "DEF/Manifest.db", 9'000'000);
    grantAccess();
    // The first scan has measured ABC and is held at DEF.
    ThreadGate& gate = hold("attributes", backupFolder() / "DEF");
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    runUntilHeld(gate);
    const TaskHandle first = state->scanTask;
    files.remove(backupFolder() / "ABC");
    files.remove(backupFolder() / "DEF");
    state->startScan(false);
    EXPECT_TRUE(first.isCancelled());
    EXPECT_THAT(*state->finishedCategories, IsEmpty());
    runUntil([&] { return *state->scanPhase == ScanPhase::done; });
    EXPECT_THAT(*state->finishedCategories, SizeIs(5));
    EXPECT_TRUE(first.isAtWork());
    loop.advance(1h);
    gate.open();
    finishWork();
    EXPECT_THAT(*state->backupItems, IsEmpty());
    EXPECT_EQ(*state->scannedAt, system.now);
}

TEST_F(ReplacedScan, LeavesTheTickerToTheOneThatReplacedIt) {
    fillDisk();
    grantAccess();
    ThreadGate& gate = hold("attributes", library("Caches/Acme"));
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    runUntilHeld(gate);
    const TaskHandle ticker = state->locationTask;
    const TaskHandle first = state->scanTask;
    hold("list", backupFolder());
    state->startScan(true);
    EXPECT_TRUE(ticker.isCancelled());
    runUntil([&] { return state->finishedCategories->size() == 4; });
    gate.open();
    runUntil([&] { return !first.isAtWork(); });
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    loop.advance(700ms);
    EXPECT_EQ(*state->scanLocation, "~/Library/Logs");
}

using DeveloperScan = ScanTest;

TEST_F(DeveloperScan, ByItselfPublishesSectionsSelectionAndCategory) {
    fillDisk();
    start();
    state->scanDeveloper();
    runUntil([&] { return *state->isScanningDeveloper; });
    finishWork();
    EXPECT_FALSE(*state->isScanningDeveloper);
    EXPECT_THAT(idsOf(state->devItems()), ElementsAre("pkg:.npm/_cacache"));
    EXPECT_THAT(*state->devSelection, ElementsAre("pkg:.npm/_cacache"));
    EXPECT_THAT(*state->finishedCategories, ElementsAre(developer));
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
}

TEST_F(DeveloperScan, BegunElsewhereIsLookedAtFiveTimesASecond) {
    fillDisk();
    ThreadGate& gate = hold("exists", home(".npm/_cacache"));
    start();
    state->scanDeveloper();
    runUntil([&] { return *state->isScanningDeveloper; });
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    loop.advance(1210ms);
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    EXPECT_FALSE(hasFinished(developer));
    gate.open();
    runUntil([&] { return !*state->isScanningDeveloper; });
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    runUntil([&] { return *state->scanPhase == ScanPhase::done; });
    EXPECT_EQ(*state->scannedAt, system.now + 1400ms);
    EXPECT_TRUE(hasFinished(developer));
    EXPECT_EQ(timesAsked("exists /Users/sam/.npm/_cacache"), 1);
}

TEST_F(DeveloperScan, OfAStoppedScanLeavesTheCategoryUnfinished) {
    fillDisk();
    ThreadGate& gate = hold("exists", home(".npm/_cacache"));
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    state->cancelScan();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    gate.open();
    finishWork();
    EXPECT_THAT(*state->finishedCategories, ElementsAre(crumbs, leftovers, largeFiles, backups));
    EXPECT_FALSE(state->devSections->has_value());
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
}

TEST_F(DeveloperScan, ReplacesAChoiceAtTheEndOfTheWholeScan) {
    fillDisk();
    grantAccess();
    ThreadGate& gate = hold("list", backupFolder());
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    EXPECT_THAT(*state->devSelection, ElementsAre("pkg:.npm/_cacache"));
    state->toggleDevItem("pkg:.npm/_cacache");
    EXPECT_THAT(*state->devSelection, IsEmpty());
    gate.open();
    finishWork();
    EXPECT_THAT(*state->devSelection, ElementsAre("pkg:.npm/_cacache"));
}

using LargeFilesCategory = ScanTest;

TEST_F(LargeFilesCategory, AwaitsAFileScanBegunEarlier) {
    fillDisk();
    ThreadGate& gate = hold("list", "/Users/sam");
    start();
    state->scanFiles(false);
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    EXPECT_FALSE(hasFinished(largeFiles));
    gate.open();
    finishWork();
    EXPECT_TRUE(hasFinished(largeFiles));
    EXPECT_THAT(*state->files, SizeIs(1));
    EXPECT_EQ(timesAsked("list /Users/sam"), 1);
}

TEST_F(LargeFilesCategory, WalksAgainHoweverFreshTheListIs) {
    fillDisk();
    start();
    state->scanFiles(false);
    finishWork();
    scan();
    EXPECT_EQ(timesAsked("list /Users/sam"), 2);
}

using Ticker = ScanTest;

TEST_F(Ticker, ShowsElevenPlacesAndBeginsAnew) {
    hold("list", "/Users/sam");
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    Texts shown{*state->scanLocation};
    for (int step = 0; step < 11; ++step) {
        loop.advance(699ms);
        EXPECT_EQ(*state->scanLocation, shown.back());
        loop.advance(1ms);
        shown.push_back(*state->scanLocation);
    }
    EXPECT_THAT(
        shown,
        ElementsAre("~/Library/Caches", "~/Library/Logs", "~/Library/Developer/Xcode/DerivedData",
                    "~/Library/Application Support", "~/Library/Preferences", "~/.npm/_cacache",
                    "~/Library/Developer/CoreSimulator", "~/Downloads", "~/Movies", "~/Documents",
                    "~/Library/Application Support/MobileSync/Backup", "~/Library/Caches"));
}

TEST_F(Ticker, StopsWithTheScanAndLeavesItsLastWord) {
    start();
    scan();
    loop.advance(10s);
    EXPECT_EQ(*state->scanLocation, "~/Library/Caches");
    EXPECT_TRUE(state->isIdle());
}

TEST_F(Ticker, StopsWhenTheUserStopsTheScan) {
    hold("list", "/Users/sam");
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    loop.advance(700ms);
    state->cancelScan();
    loop.advance(10s);
    EXPECT_EQ(*state->scanLocation, "~/Library/Logs");
}

}  // namespace
}  // namespace morvane
