// What runs from the program's start to its end.

#include "screens/screen_test.h"
#include "tasks/scope.h"
#include "ui/window/startup_task.h"

namespace morvane {
namespace {

class Startup : public screens::ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        state->schedule = ScanSchedule::off;
        scope_.emplace(Runtime{loop, pool});
    }
    void TearDown() override {
        scope_->cancel();
        EXPECT_TRUE(loop.runUntil([this] { return scope_->isEmpty(); }));
        scope_.reset();
        ScreenTest::TearDown();
    }

    void begin() {
        scope_->start(startupTask(&*screens, state.get(), [this] { ++minutes; }));
        loop.runReady();
    }
    // Begins and lets the disk be measured.
    void beginAndMeasure() {
        begin();
        runUntil([this] { return !state->diskTask.isAtWork(); });
    }

    int minutes = 0;

private:
    std::optional<Scope> scope_;
};

TEST_F(Startup, BeginsTheAutomaticScansAndMeasuresTheDisk) {
    begin();
    EXPECT_TRUE(state->autoScanTask.isAtWork());
    EXPECT_TRUE(state->diskTask.isAtWork());
    runUntil([this] { return !state->diskTask.isAtWork(); });
    EXPECT_TRUE(state->disk->isComplete);
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_EQ(minutes, 0);
}

TEST_F(Startup, StartsAScanThatIsDue) {
    state->schedule = ScanSchedule::weekly;
    state->selection = SidebarItem::settings;
    hold("list", "/Users/sam");
    begin();
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    EXPECT_EQ(*state->selection, SidebarItem::settings);
}

TEST_F(Startup, OfASecondWindowBeginsNoSecondLoop) {
    beginAndMeasure();
    const std::size_t tasks = state->tasksAtWork();
    begin();
    EXPECT_EQ(state->tasksAtWork(), tasks);
}

TEST_F(Startup, LooksAtTheVolumeEverySixtySeconds) {
    beginAndMeasure();
    system.volume.setFigures(VolumeFigures{"Elsewhere", 500, 50, 70});
    EXPECT_THAT(changedBy([this] { loop.advance(60s - 1ns); }), IsEmpty());
    EXPECT_THAT(changedBy([this] { loop.advance(1ns); }), ElementsAre("disk"));
    EXPECT_THAT(animated, ElementsAre("disk"));
    EXPECT_EQ(state->disk->volumeName, "Elsewhere");
    EXPECT_EQ(state->disk->freeBytes, 50);
    EXPECT_EQ(state->disk->purgeableBytes, 20);
    EXPECT_TRUE(state->disk->isComplete);
    system.volume.setFigures(VolumeFigures{"Elsewhere", 500, 40, 70});
    loop.advance(60s);
    EXPECT_EQ(state->disk->freeBytes, 40);
    EXPECT_EQ(minutes, 2);
}

TEST_F(Startup, WritesNoFiguresThatAreTheSameOrThatTheVolumeDoesNotTell) {
    beginAndMeasure();
    const DiskUsage before = *state->disk;
    EXPECT_THAT(changedBy([this] { loop.advance(60s); }), IsEmpty());
    system.volume.setFigures(std::nullopt);
    EXPECT_THAT(changedBy([this] { loop.advance(60s); }), IsEmpty());
    EXPECT_EQ(*state->disk, before);
    EXPECT_EQ(minutes, 2);
}

}  // namespace
}  // namespace morvane
