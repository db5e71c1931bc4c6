#include "core/store_test.h"

namespace morvane {
namespace {

// A store that is dropped while it works.
class Drop : public ScanTest {
protected:
    void dropAndFinish() {
        state->drop();
        finishWork();
    }
};

TEST_F(Drop, EndsAScanWithoutAWrite) {
    fillDisk();
    grantAccess();
    ThreadGate& gate = hold("list", backupFolder());
    start();
    state->startScan(true);
    runUntil([&] { return state->finishedCategories->size() == 4; });
    state->drop();
    gate.open();
    finishWork();
    EXPECT_TRUE(state->isIdle());
    EXPECT_THAT(defaults.writes, IsEmpty());
    EXPECT_THAT(*state->backupItems, IsEmpty());
    EXPECT_EQ(*state->lastScanAt, std::nullopt);
}

TEST_F(Drop, BlocksNobody) {
    hold("list", "/Users/sam");
    start();
    state->startScan(true);
    loop.runReady();
    state->drop();
    EXPECT_FALSE(state->isIdle());
}

TEST_F(Drop, StoresNothingMoreWhateverIsSet) {
    start();
    state->drop();
    state->schedule = ScanSchedule::off;
    state->recordSweep("1 item · 5 MB", {});
    state->lastSweptAt = system.now;
    state->refreshDisk();
    finishWork();
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Drop, TellsNobodyMore) {
    start();
    int told = 0;
    const auto subscription = state->store().observe([&](const ChangedFields&) { ++told; });
    state->freedMB = 1;
    state->drop();
    state->freedMB = 2;
    loop.runReady();
    EXPECT_EQ(told, 0);
}

TEST_F(Drop, EndsLoopsWatchersAndMeasuring) {
    defaults.stored["hasOnboarded"] = true;
    start();
    state->schedule = ScanSchedule::off;
    state->startAutoScanLoop();
    state->watchForAccess();
    state->refreshDisk();
    loop.advance(5s);
    defaults.writes.clear();
    dropAndFinish();
    EXPECT_EQ(state->tasksAtWork(), 0U);
    EXPECT_EQ(loop.now(), system.now + 5s);
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Drop, PostsNoReminder) {
    system.workspace.active = false;
    system.notifications.status = PermissionStatus::granted;
    start();
    state->crumbItems = {trashItem("caches", Safety::safe, 9'000'000'000)};
    state->remindIfReady();
    dropAndFinish();
    EXPECT_THAT(system.notifications.posted, IsEmpty());
}

TEST_F(Drop, LetsASweepThatHasBegunGoThrough) {
    start();
    ThreadGate gate;
    remover.whileRemoving = [&] { gate.pass(); };
    state->crumbItems = {placed(trashItem("one", Safety::safe, 5)),
                         placed(trashItem("two", Safety::safe, 6))};
    state->sweep(*state->crumbItems, std::nullopt);
    loop.runReady();
    gate.waitForArrivals(1);
    state->drop();
    gate.open();
    finishWork();
    EXPECT_FALSE(stands("/x/one"));
    EXPECT_FALSE(stands("/x/two"));
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Drop, OfTheLastHolderFreesTheStoreOnceItsTasksHaveEnded) {
    start();
    state->startScan(true);
    const std::weak_ptr<AppState> weak = state;
    state->drop();
    state.reset();
    ASSERT_TRUE(loop.runUntil([&] { return weak.expired(); }));
}

TEST_F(Drop, KnowsWhatItIsRemoving) {
    start();
    EXPECT_FALSE(state->isRemoving());
    state->isSweeping = true;
    EXPECT_TRUE(state->isRemoving());
    state->isSweeping = false;
    state->isUninstalling = true;
    EXPECT_TRUE(state->isRemoving());
}

}  // namespace
}  // namespace morvane
