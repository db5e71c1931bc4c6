#include "core/store_test.h"

namespace morvane {
namespace {

class AutoScan : public StoreTest {
protected:
    void onboarded() {
        defaults.stored["hasOnboarded"] = true;
        start();
    }
    [[nodiscard]] bool scansNow() {
        state->autoScanTick();
        return *state->scanPhase == ScanPhase::scanning;
    }
};

TEST_F(AutoScan, IsDueWhereNoneHasEverEnded) {
    onboarded();
    EXPECT_TRUE(scansNow());
    EXPECT_EQ(*state->selection, SidebarItem::overview);
}

TEST_F(AutoScan, DoesNotMoveTheUser) {
    onboarded();
    state->selection = SidebarItem::settings;
    EXPECT_TRUE(scansNow());
    EXPECT_EQ(*state->selection, SidebarItem::settings);
}

TEST_F(AutoScan, WaitsForTheEndOfOnboarding) {
    start();
    EXPECT_FALSE(scansNow());
    state->finishOnboarding();
    EXPECT_TRUE(scansNow());
}

TEST_F(AutoScan, RestsWhileTheScheduleIsOff) {
    onboarded();
    state->schedule = ScanSchedule::off;
    EXPECT_FALSE(scansNow());
}

TEST_F(AutoScan, IsDueAWeekAfterTheLastToTheSecond) {
    onboarded();
    state->lastScanAt = system.now - 604'799s;
    EXPECT_FALSE(scansNow());
    state->lastScanAt = system.now - 604'800s;
    EXPECT_TRUE(scansNow());
}

TEST_F(AutoScan, IsDueThirtyDaysAfterTheLastToTheSecond) {
    onboarded();
    state->schedule = ScanSchedule::monthly;
    state->lastScanAt = system.now - 2'591'999s;
    EXPECT_FALSE(scansNow());
    state->lastScanAt = system.now - 2'592'000s;
    EXPECT_TRUE(scansNow());
}

TEST_F(AutoScan, ReplacesNoSuccessCardAndNoSweep) {
    onboarded();
    state->scanPhase = ScanPhase::success;
    EXPECT_FALSE(scansNow());
    state->scanPhase = ScanPhase::done;
    state->isSweeping = true;
    EXPECT_FALSE(scansNow());
    state->isSweeping = false;
    EXPECT_TRUE(scansNow());
    const TaskHandle first = state->scanTask;
    state->autoScanTick();
    EXPECT_FALSE(first.isCancelled());
}

TEST_F(AutoScan, HoldsBackWhileTheUserChoosesInFront) {
    onboarded();
    for (const SidebarItem screen : {SidebarItem::sweep, SidebarItem::developer}) {
        state->selection = screen;
        system.workspace.active = true;
        EXPECT_FALSE(scansNow());
        system.workspace.active = false;
        EXPECT_TRUE(scansNow());
        finishWork();
        state->lastScanAt = std::nullopt;
    }
}

TEST_F(AutoScan, LooksAtOnceAndEveryFifteenMinutes) {
    hold("list", "/Users/sam");
    onboarded();
    state->selection = SidebarItem::sweep;
    state->startAutoScanLoop();
    loop.advance(900s - 1ns);
    state->selection = SidebarItem::overview;
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    loop.advance(1ns);
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
}

TEST_F(AutoScan, StartsRightAtTheProgramsStart) {
    hold("list", "/Users/sam");
    onboarded();
    state->startAutoScanLoop();
    loop.runReady();
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
}

TEST_F(AutoScan, LoopsOnce) {
    onboarded();
    state->schedule = ScanSchedule::off;
    state->startAutoScanLoop();
    const std::size_t tasks = state->tasksAtWork();
    state->startAutoScanLoop();
    EXPECT_EQ(state->tasksAtWork(), tasks);
}

TEST_F(AutoScan, IsPutOffByAScanByHand) {
    onboarded();
    state->startScan(true);
    finishWork();
    loop.advance(604'799s);
    EXPECT_FALSE(scansNow());
    loop.advance(1s);
    EXPECT_TRUE(scansNow());
}

class Reminder : public StoreTest {
protected:
    using Posted = fakes::FakeNotifications::Posted;

    Reminder() {
        system.workspace.active = false;
        system.notifications.status = PermissionStatus::granted;
    }
    void begin() {
        start();
        holdReady(5'000'000'000);
    }
    void holdReady(std::int64_t bytes) {
        state->crumbItems = {trashItem("caches", Safety::safe, bytes)};
    }
    void remind() {
        state->remindIfReady();
        finishWork();
    }
    [[nodiscard]] const std::vector<Posted>& posted() const { return system.notifications.posted; }
};

TEST_F(Reminder, ComesAtExactlyFiveThousandMegabytes) {
    begin();
    remind();
    EXPECT_THAT(posted(),
                ElementsAre(Posted{"ready-to-sweep", "5.0 GB is ready to sweep",
                                   "Open Morvane to review it. Everything goes to the Trash "
                                   "first."}));
    EXPECT_EQ(*state->remindedAt, system.now);
    EXPECT_EQ(defaults.writtenKeys(), (Texts{"remindedAt"}));
}

TEST_F(Reminder, DoesNotComeForLess) {
    begin();
    holdReady(4'999'900'000);
    remind();
    holdReady(4'999'999'999);
    remind();
    EXPECT_THAT(posted(), IsEmpty());
    EXPECT_EQ(*state->remindedAt, std::nullopt);
}

TEST_F(Reminder, CountsNeitherReviewNorDeveloperItemsNorFiles) {
    begin();
    holdReady(1'000'000'000);
    state->backupItems = {trashItem("backup:a", Safety::review, 9'000'000'000)};
    state->devSections = {{devSection("dd", {trashItem("a", Safety::safe, 9'000'000'000)})}};
    state->files = {{.url = "/a", .bytes = 9'000'000'000}};
    remind();
    EXPECT_THAT(posted(), IsEmpty());
}

TEST_F(Reminder, SpeaksOfDeletingWhereTheTrashIsNotUsed) {
    begin();
    state->alwaysUseTrash = false;
    remind();
    ASSERT_THAT(posted(), SizeIs(1));
    EXPECT_EQ(posted()[0].body, "Open Morvane to review it before anything is deleted.");
}

TEST_F(Reminder, DoesNotComeToAUserInFrontNorIsItRemembered) {
    begin();
    system.workspace.active = true;
    remind();
    EXPECT_THAT(posted(), IsEmpty());
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Reminder, CanBeSwitchedOff) {
    begin();
    state->remindWhenReady = false;
    remind();
    EXPECT_THAT(posted(), IsEmpty());
    EXPECT_EQ(*state->remindedAt, std::nullopt);
}

TEST_F(Reminder, ComesOnceUntilTheUserHasSwept) {
    begin();
    remind();
    loop.advance(24h * 8);
    holdReady(50'000'000'000);
    remind();
    EXPECT_THAT(posted(), SizeIs(1));
    EXPECT_EQ(*state->remindedAt, system.now);
    state->lastSweptAt = system.now - 1ns;
    remind();
    EXPECT_THAT(posted(), SizeIs(1));
    state->lastSweptAt = system.now;
    remind();
    ASSERT_THAT(posted(), SizeIs(2));
    EXPECT_EQ(posted()[1].title, "50.0 GB is ready to sweep");
    EXPECT_EQ(*state->remindedAt, system.now + 24h * 8);
}

TEST_F(Reminder, IsDroppedWhereNotificationsAreNotAllowedThoughItsDateMoves) {
    for (const PermissionStatus status :
         {PermissionStatus::denied, PermissionStatus::notDetermined}) {
        begin();
        system.notifications.status = status;
        remind();
        EXPECT_THAT(posted(), IsEmpty());
        EXPECT_EQ(*state->remindedAt, system.now);
        defaults.stored.clear();
    }
}

TEST_F(Reminder, ComesAtTheEndOfAScan) {
    files.addFile(library("Caches/Acme/data"), 6'000'000'000);
    start();
    state->startScan(false);
    finishWork();
    ASSERT_THAT(posted(), SizeIs(1));
    EXPECT_EQ(posted()[0].title, "6.0 GB is ready to sweep");
    EXPECT_EQ(defaults.writtenKeys(), (Texts{"lastScanAt", "remindedAt"}));
}

TEST_F(Reminder, DoesNotComeOfAStoppedScan) {
    files.addFile(library("Caches/Acme/data"), 6'000'000'000);
    hold("list", "/Users/sam");
    start();
    state->startScan(false);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    state->cancelScan();
    loop.runReady();
    EXPECT_EQ(*state->remindedAt, std::nullopt);
}

}  // namespace
}  // namespace morvane
