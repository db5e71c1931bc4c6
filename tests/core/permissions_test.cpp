#include "core/store_test.h"

namespace morvane {
namespace {

using enum PermissionStatus;

class Permissions : public StoreTest {
protected:
    void watch(int turns) {
        state->watchForAccess();
        loop.advance(std::chrono::seconds(turns));
    }
};

TEST_F(Permissions, AreProbedOnceBeforeAnythingShows) {
    grantAccess();
    start();
    EXPECT_EQ(*state->fullDiskAccess, granted);
    EXPECT_EQ(*state->notificationStatus, notDetermined);
    EXPECT_TRUE(state->isIdle());
    EXPECT_EQ(timesAsked("probe /Users/sam/Library/Safari/Bookmarks.plist"), 1);
}

TEST_F(Permissions, OfADiskWithoutTheProbesPathsAreDenied) {
    start();
    EXPECT_EQ(*state->fullDiskAccess, denied);
}

TEST_F(Permissions, AreBroughtUpToDate) {
    start();
    grantAccess();
    system.notifications.status = denied;
    state->refreshPermissions();
    EXPECT_EQ(*state->fullDiskAccess, granted);
    EXPECT_EQ(*state->notificationStatus, notDetermined);
    finishWork();
    EXPECT_EQ(*state->notificationStatus, denied);
    EXPECT_TRUE(*state->remindWhenReady);
}

TEST_F(Permissions, AreNotWrittenWhereNothingDiffers) {
    start();
    loop.runReady();
    int told = 0;
    const auto subscription = state->store().observe([&](const ChangedFields&) { ++told; });
    state->refreshPermissions();
    finishWork();
    EXPECT_EQ(told, 0);
}

TEST_F(Permissions, AreAnimatedWhereTheyChange) {
    start();
    loop.runReady();
    ChangedFields seen;
    const auto subscription = state->store().observe(
        [&](const ChangedFields& changed) { seen.insert(changed.begin(), changed.end()); });
    system.notifications.status = granted;
    grantAccess();
    state->refreshPermissions();
    finishWork();
    EXPECT_TRUE(seen.at("fullDiskAccess"));
    EXPECT_TRUE(seen.at("notificationStatus"));
}

TEST_F(Permissions, ThatAreGrantedMeasureTheDiskAndForgetTheDates) {
    start();
    state->appsScannedAt = system.now;
    state->filesScannedAt = system.now;
    state->storageScannedAt = system.now;
    state->scannedAt = system.now;
    grantAccess();
    state->refreshPermissions();
    EXPECT_TRUE(state->diskTask.isAtWork());
    EXPECT_EQ(*state->appsScannedAt, std::nullopt);
    EXPECT_EQ(*state->filesScannedAt, std::nullopt);
    EXPECT_EQ(*state->storageScannedAt, std::nullopt);
    EXPECT_EQ(*state->scannedAt, system.now);
    finishWork();
    EXPECT_TRUE(state->disk->isComplete);
    EXPECT_THAT(state->disk->skipped, IsEmpty());
    EXPECT_FALSE(state->appScanTask);
    EXPECT_FALSE(state->fileScanTask);
    EXPECT_FALSE(state->storageTask);
    EXPECT_FALSE(state->scanTask);
}

TEST_F(Permissions, ThatAreGrantedScanAgainForTheScreenOnView) {
    start();
    const std::tuple<SidebarItem, bool, bool, bool> screens[] = {
        {SidebarItem::uninstaller, true, false, false},
        {SidebarItem::large, false, true, false},
        {SidebarItem::storage, false, false, true},
        {SidebarItem::overview, false, false, false}};
    for (const auto& [screen, scansApps, scansFiles, scansStorage] : screens) {
        state->fullDiskAccess = denied;
        state->selection = screen;
        grantAccess();
        state->refreshPermissions();
        EXPECT_EQ(*state->isScanningApps, scansApps);
        EXPECT_EQ(*state->isScanningFiles, scansFiles);
        EXPECT_EQ(*state->isScanningStorage, scansStorage);
        finishWork();
    }
}

TEST_F(Permissions, ThatAreTakenAwayTriggerNothing) {
    grantAccess();
    start();
    state->appsScannedAt = system.now;
    state->selection = SidebarItem::uninstaller;
    files.remove(library("Safari/Bookmarks.plist"));
    state->refreshPermissions();
    EXPECT_EQ(*state->fullDiskAccess, denied);
    EXPECT_EQ(*state->appsScannedAt, system.now);
    EXPECT_FALSE(state->diskTask);
    EXPECT_FALSE(*state->isScanningApps);
}

TEST_F(Permissions, AreAskedForWithTheirPaneOpen) {
    start();
    state->watchForAccess();
    EXPECT_THAT(
        system.workspace.openedURLs,
        ElementsAre("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
}

TEST_F(Permissions, AreSeenWithinASecondAndBringTheProgramToTheFront) {
    start();
    watch(1);
    grantAccess();
    loop.advance(999ms);
    EXPECT_EQ(*state->fullDiskAccess, denied);
    loop.advance(1ms);
    EXPECT_EQ(*state->fullDiskAccess, granted);
    EXPECT_EQ(system.workspace.activations, 1);
    EXPECT_TRUE(state->diskTask);
    EXPECT_FALSE(state->accessWatchTask.isAtWork());
}

TEST_F(Permissions, AreSeenInTurn299) {
    start();
    watch(298);
    grantAccess();
    loop.advance(1s);
    EXPECT_EQ(*state->fullDiskAccess, granted);
}

TEST_F(Permissions, AreSeenInTurn300) {
    start();
    watch(299);
    grantAccess();
    loop.advance(1s);
    EXPECT_EQ(*state->fullDiskAccess, granted);
}

TEST_F(Permissions, AreNotSeenInTurn301) {
    start();
    watch(300);
    EXPECT_FALSE(state->accessWatchTask.isAtWork());
    grantAccess();
    loop.advance(1h);
    EXPECT_EQ(*state->fullDiskAccess, denied);
    EXPECT_EQ(system.workspace.activations, 0);
}

TEST_F(Permissions, WatchedTwiceAreCountedFromTheSecondTime) {
    start();
    watch(200);
    const TaskHandle first = state->accessWatchTask;
    watch(299);
    EXPECT_TRUE(first.isCancelled());
    EXPECT_FALSE(first.isAtWork());
    grantAccess();
    loop.advance(1s);
    EXPECT_EQ(*state->fullDiskAccess, granted);
    EXPECT_EQ(system.workspace.activations, 1);
}

TEST_F(Permissions, AreWatchedNoMoreAfterOnboarding) {
    start();
    watch(1);
    state->finishOnboarding();
    grantAccess();
    loop.advance(10s);
    EXPECT_EQ(*state->fullDiskAccess, denied);
}

TEST_F(Permissions, ToNotifyAreAskedForWithAlertSoundAndBadge) {
    start();
    state->remindWhenReady = false;
    state->requestNotifications();
    finishWork();
    EXPECT_THAT(system.notifications.requests, ElementsAre(7));
    EXPECT_EQ(*state->notificationStatus, granted);
    EXPECT_TRUE(*state->remindWhenReady);
}

TEST_F(Permissions, ToNotifyThatAreDeclinedSwitchRemindersOff) {
    system.notifications.answersWith = denied;
    start();
    state->requestNotifications();
    finishWork();
    EXPECT_EQ(*state->notificationStatus, denied);
    EXPECT_FALSE(*state->remindWhenReady);
    EXPECT_EQ(defaults.writes, (std::vector<MemoryDefaults::Write>{{"remindWhenReady", {false}}}));
}

TEST_F(Permissions, ToNotifyThatStayOpenSwitchRemindersOff) {
    system.notifications.answersWith = notDetermined;
    start();
    state->requestNotifications();
    finishWork();
    EXPECT_EQ(*state->notificationStatus, notDetermined);
    EXPECT_FALSE(*state->remindWhenReady);
}

}  // namespace
}  // namespace morvane
