#include "tasks/scope.h"

#include <gmock/gmock.h>

#include "tasks/background.h"
#include "tasks/gates.h"
#include "tasks/sleep.h"
#include "tasks/workshop.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

Task<> passGate(Workshop& shop, TaskGate& gate, std::string name, Counted) {
    co_await gate.pass();
    shop.note(name + (co_await isCancelled() ? " cancelled" : " wanted"));
}

Task<> noteOnly(Workshop& shop, std::string what) {
    shop.note(what);
    co_return;
}

TEST(Scope, BeginsTasksAtALaterTurnInTheOrderOfTheCalls) {
    Workshop shop;
    shop.scope.start(noteOnly(shop, "first"));
    shop.scope.start(noteOnly(shop, "second"));
    EXPECT_FALSE(shop.scope.isEmpty());
    EXPECT_THAT(shop.diary, ElementsAre());
    shop.loop.runReady();
    EXPECT_TRUE(shop.scope.isEmpty());
    EXPECT_THAT(shop.diary, ElementsAre("first", "second"));
}

TEST(Scope, LeavesNothingOfATaskThatHasEnded) {
    Workshop shop;
    Counted::Counts counts;
    TaskGate gate;
    const TaskHandle handle = shop.scope.start(passGate(shop, gate, "a", Counted(counts)));
    shop.loop.runReady();
    EXPECT_EQ(counts.alive, 1);
    gate.open();
    EXPECT_FALSE(handle.isAtWork());
    EXPECT_EQ(counts.alive, 0);
}

TEST(Scope, CancelsAllAndWhatIsStartedLater) {
    Workshop shop;
    TaskGate gate;
    Counted::Counts counts;
    shop.scope.start(passGate(shop, gate, "a", Counted(counts)));
    shop.scope.start(passGate(shop, gate, "b", Counted(counts)));
    shop.loop.runReady();
    shop.scope.cancel();
    shop.scope.start(passGate(shop, gate, "c", Counted(counts)));
    shop.loop.runReady();
    gate.open();
    EXPECT_THAT(shop.diary, ElementsAre("a cancelled", "b cancelled", "c cancelled"));
    EXPECT_EQ(counts.alive, 0);
}

TEST(Scope, BlocksNobodyWhenItIsDroppedAndItsTasksEndLater) {
    Workshop shop;
    ThreadGate background;
    TaskGate gate;
    Counted::Counts counts;
    TaskHandle handle;
    {
        Scope dropped(Runtime{shop.loop, shop.pool});
        handle = dropped.start(passGate(shop, gate, "a", Counted(counts)));
        dropped.start([](Workshop& place, ThreadGate& held) -> Task<> {
            co_await morvane::background([&held](const StopToken&) { held.pass(); });
            place.note(co_await isCancelled() ? "b cancelled" : "b wanted");
        }(shop, background));
        shop.loop.runReady();
        background.waitForArrivals(1);
    }
    EXPECT_TRUE(handle.isCancelled());
    EXPECT_TRUE(handle.isAtWork());
    gate.open();
    EXPECT_FALSE(handle.isAtWork());
    background.open();
    EXPECT_TRUE(shop.loop.runUntil([&] { return shop.diary.size() == 2; }));
    EXPECT_THAT(shop.diary, ElementsAre("a cancelled", "b cancelled"));
    EXPECT_EQ(counts.alive, 0);
}

TEST(Scope, MayBeDroppedByOneOfItsTasks) {
    Workshop shop;
    auto scope = std::make_unique<Scope>(Runtime{shop.loop, shop.pool});
    const TaskHandle handle =
        scope->start([](Workshop& place, std::unique_ptr<Scope>& own) -> Task<> {
            own.reset();
            place.note(co_await isCancelled() ? "cancelled" : "wanted");
        }(shop, scope));
    shop.loop.runReady();
    EXPECT_FALSE(handle.isAtWork());
    EXPECT_THAT(shop.diary, ElementsAre("cancelled"));
}

Task<> waitFor(Workshop& shop, TaskHandle other, std::string name) {
    co_await other.ended();
    shop.note(name + (co_await isCancelled() ? " cancelled" : " wanted"));
}

TEST(TaskHandle, IsAwaitedBySeveralAndByOneThatIsCancelled) {
    Workshop shop;
    TaskGate gate;
    Counted::Counts counts;
    const TaskHandle handle = shop.scope.start(passGate(shop, gate, "work", Counted(counts)));
    shop.scope.start(waitFor(shop, handle, "first"));
    const TaskHandle second = shop.scope.start(waitFor(shop, handle, "second"));
    shop.scope.start(waitFor(shop, TaskHandle(), "third"));
    shop.loop.runReady();
    second.cancel();
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("third wanted"));
    gate.open();
    shop.loop.runReady();
    shop.scope.start(waitFor(shop, handle, "late"));
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("third wanted", "work wanted", "first wanted",
                                        "second cancelled", "late wanted"));
}

Task<> fetch(Workshop& shop, std::string name, std::chrono::nanoseconds time) {
    const bool slept = co_await sleepFor(time);
    shop.note(name + (slept ? " done" : " cancelled"));
}

Task<> family(Workshop& shop, Scope& scope) {
    Group group(co_await currentContext());
    group.start(fetch(shop, "slow", 3s));
    group.start(fetch(shop, "quick", 1s));
    group.start(fetch(shop, "middle", 2s));
    scope.start(fetch(shop, "apart", 4s));
    co_await group.wait();
    shop.note(co_await isCancelled() ? "family cancelled" : "family done");
}

TEST(Group, WaitsForChildrenThatEndInAnyOrder) {
    Workshop shop;
    shop.scope.start(family(shop, shop.scope));
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary,
                ElementsAre("quick done", "middle done", "slow done", "family done", "apart done"));
}

TEST(Group, IsTakenAlongByACancelledParentButNotWhatTheScopeHolds) {
    Workshop shop;
    const TaskHandle parent = shop.scope.start(family(shop, shop.scope));
    shop.loop.advance(1500ms);
    parent.cancel();
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("quick done", "slow cancelled", "middle cancelled",
                                        "family cancelled"));
    EXPECT_TRUE(shop.finish());
    EXPECT_EQ(shop.diary.back(), "apart done");
}

TEST(Group, StartsCancelledChildrenForAParentThatWasCancelledBefore) {
    Workshop shop;
    const TaskHandle parent = shop.scope.start(family(shop, shop.scope));
    parent.cancel();
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("slow cancelled", "quick cancelled", "middle cancelled",
                                        "family cancelled"));
    EXPECT_TRUE(shop.finish());
    EXPECT_EQ(shop.diary.back(), "apart done");
}

Task<> oneChildCancelled(Workshop& shop) {
    Group group(co_await currentContext());
    const TaskHandle child = group.start(fetch(shop, "first", 3s));
    group.start(fetch(shop, "second", 1s));
    child.cancel();
    co_await group.wait();
    shop.note(co_await isCancelled() ? "parent cancelled" : "parent wanted");
}

TEST(Group, LetsOneChildBeCancelledAlone) {
    Workshop shop;
    shop.scope.start(oneChildCancelled(shop));
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("first cancelled", "second done", "parent wanted"));
}

Task<> grandparent(Workshop& shop) {
    Group group(co_await currentContext());
    group.start([](Workshop& place) -> Task<> {
        Group inner(co_await currentContext());
        inner.start(fetch(place, "grandchild", 3s));
        co_await inner.wait();
    }(shop));
    co_await group.wait();
}

TEST(Group, PassesACancellationOnToGrandchildren) {
    Workshop shop;
    const TaskHandle handle = shop.scope.start(grandparent(shop));
    shop.loop.advance(1s);
    handle.cancel();
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("grandchild cancelled"));
    EXPECT_TRUE(shop.scope.isEmpty());
}

Task<> addInBackground(std::atomic<int>& sum) {
    co_await background([&sum](const StopToken&) { ++sum; });
}

Task<> manyChildren(int count, std::atomic<int>& sum) {
    Group group(co_await currentContext());
    for (int child = 0; child < count; ++child) group.start(addInBackground(sum));
    co_await group.wait();
}

TEST(Group, HoldsManyChildrenInTheBackground) {
    Workshop shop;
    std::atomic<int> sum{0};
    shop.scope.start(manyChildren(2000, sum));
    EXPECT_TRUE(shop.finish());
    EXPECT_EQ(sum, 2000);
}

Task<> startTwoMore(Workshop& shop) {
    shop.scope.start(fetch(shop, "one", 5s));
    co_await sleepFor(1s);
    co_await background([](const StopToken&) {});
    shop.scope.start(fetch(shop, "two", 5s));
}

TEST(WorkInProgress, CountsTasksStartedDirectlyAndByOneAnother) {
    Workshop shop;
    shop.scope.start(fetch(shop, "before", 100s));
    const auto work = std::make_shared<WorkInProgress>();
    {
        const WorkGuard guard(work);
        shop.scope.start(startTwoMore(shop));
        EXPECT_EQ(work->tasks, 1);
    }
    EXPECT_EQ(currentWork(), nullptr);
    shop.scope.start(fetch(shop, "after", 100s));
    EXPECT_EQ(work->tasks, 1);
    shop.loop.runReady();
    EXPECT_EQ(work->tasks, 2);
    EXPECT_TRUE(shop.loop.runUntil([&] { return work->tasks == 0; }));
    EXPECT_THAT(shop.diary, ElementsAre("one done", "two done"));
    EXPECT_EQ(shop.loop.now(), shop.at(6s));
    EXPECT_TRUE(shop.finish());
}

Task<> lendGroup(Group*& lent, TaskGate& gate) {
    Group group(co_await currentContext());
    lent = &group;
    co_await gate.pass();
    co_await group.wait();
}

TEST(WorkInProgress, CountsChildrenThatAreStartedFromOutsideTheirParentsTurn) {
    Workshop shop;
    const auto work = std::make_shared<WorkInProgress>();
    Group* group = nullptr;
    TaskGate gate;
    {
        const WorkGuard guard(work);
        shop.scope.start(lendGroup(group, gate));
    }
    shop.loop.runReady();
    group->start(fetch(shop, "child", 1s));
    EXPECT_EQ(work->tasks, 2);
    gate.open();
    EXPECT_TRUE(shop.finish());
    EXPECT_EQ(work->tasks, 0);
}

TEST(WorkInProgress, CountsCancelledTasksUntilTheyHaveEnded) {
    Workshop shop;
    const auto work = std::make_shared<WorkInProgress>();
    ThreadGate gate;
    TaskHandle handle;
    {
        const WorkGuard guard(work);
        handle = shop.scope.start([](ThreadGate& held) -> Task<> {
            co_await background([&held](const StopToken&) { held.pass(); });
        }(gate));
    }
    shop.loop.runReady();
    handle.cancel();
    shop.loop.runReady();
    EXPECT_EQ(work->tasks, 1);
    gate.open();
    EXPECT_TRUE(shop.finish());
    EXPECT_EQ(work->tasks, 0);
}

}  // namespace
}  // namespace morvane
