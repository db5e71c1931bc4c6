#include "tasks/event_loop.h"

#include <gmock/gmock.h>

#include "tasks/background.h"
#include "tasks/gates.h"
#include "tasks/sleep.h"
#include "tasks/workshop.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

Task<> wakeAt(Workshop& shop, std::chrono::nanoseconds time, std::string name) {
    co_await sleepFor(time);
    shop.note(name + " at " + std::to_string((shop.loop.now() - Instant{}) / 1ms));
}

Task<> wakeEvery(Workshop& shop, std::chrono::nanoseconds time, std::string name) {
    for (int turn = 0; turn < 3; ++turn) {
        co_await sleepFor(time);
        shop.note(name + " at " + std::to_string((shop.loop.now() - Instant{}) / 1ms));
    }
}

TEST(VirtualClock, RunsWhatFallsDueInOrder) {
    Workshop shop;
    shop.scope.start(wakeAt(shop, 3s, "c"));
    shop.scope.start(wakeAt(shop, 1s, "a"));
    shop.scope.start(wakeAt(shop, 2s, "b"));
    shop.scope.start(wakeAt(shop, 2s, "b too"));
    shop.scope.start(wakeAt(shop, 4s, "d"));
    shop.loop.advance(3500ms);
    EXPECT_THAT(shop.diary, ElementsAre("a at 1000", "b at 2000", "b too at 2000", "c at 3000"));
    EXPECT_EQ(shop.loop.now(), shop.at(3500ms));
    shop.loop.advance(500ms);
    EXPECT_EQ(shop.diary.back(), "d at 4000");
}

TEST(VirtualClock, RunsSleepsBegunOnTheWay) {
    Workshop shop;
    shop.scope.start(wakeEvery(shop, 1s, "each"));
    shop.scope.start(wakeAt(shop, 2500ms, "once"));
    shop.loop.advance(3s);
    EXPECT_THAT(shop.diary,
                ElementsAre("each at 1000", "each at 2000", "once at 2500", "each at 3000"));
}

TEST(VirtualClock, RunsWhatIsDueAlreadyWithoutMoving) {
    Workshop shop;
    shop.scope.start(wakeAt(shop, 0s, "now"));
    shop.scope.start(wakeAt(shop, -5s, "before"));
    shop.loop.advance(0s);
    EXPECT_THAT(shop.diary, ElementsAre("before at 0", "now at 0"));
    EXPECT_EQ(shop.loop.now(), shop.at(0s));
}

TEST(VirtualClock, JumpsToTheNextSleepWhenNothingElseIsLeft) {
    Workshop shop;
    shop.scope.start(wakeEvery(shop, 24h, "day"));
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("day at 86400000", "day at 172800000", "day at 259200000"));
    EXPECT_EQ(shop.loop.now(), shop.at(72h));
}

Task<> hold(Workshop& shop, ThreadGate& gate) {
    co_await background([&gate](const StopToken&) { gate.pass(); });
    shop.note("let go at " + std::to_string((shop.loop.now() - Instant{}) / 1ms));
}

TEST(VirtualClock, StandsStillDuringBackgroundWork) {
    Workshop shop;
    ThreadGate gate;
    shop.scope.start(hold(shop, gate));
    shop.scope.start(wakeAt(shop, 1s, "sleeper"));
    std::thread opener([&] {
        gate.waitForArrivals(1);
        gate.open();
    });
    EXPECT_TRUE(shop.finish());
    opener.join();
    EXPECT_THAT(shop.diary, ElementsAre("let go at 0", "sleeper at 1000"));
}

TEST(VirtualClock, IsMovedByHandWithoutWaitingForBackgroundWork) {
    Workshop shop;
    ThreadGate gate;
    shop.scope.start(hold(shop, gate));
    shop.scope.start(wakeAt(shop, 1s, "sleeper"));
    shop.loop.advance(2s);
    EXPECT_THAT(shop.diary, ElementsAre("sleeper at 1000"));
    gate.open();
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("sleeper at 1000", "let go at 2000"));
}

TEST(VirtualClock, KeepsWholeNanoseconds) {
    Workshop shop;
    shop.loop.advance(1ns);
    shop.loop.advance(999999999ns);
    EXPECT_EQ(shop.loop.now(), shop.at(1s));
}

TEST(EventLoop, RunsWhatIsPostedInOrderAndAtALaterTurn) {
    EventLoop loop;
    std::vector<int> order;
    loop.post([&] {
        order.push_back(1);
        loop.post([&] { order.push_back(3); });
        order.push_back(2);
    });
    EXPECT_TRUE(order.empty());
    loop.runReady();
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST(EventLoop, SaysWhenNothingIsLeftThatCouldHelp) {
    EventLoop loop{Instant{}};
    EXPECT_FALSE(loop.runUntil([] { return false; }));
    EventLoop real;
    EXPECT_FALSE(real.runUntil([] { return false; }));
    EXPECT_TRUE(real.runUntil([] { return true; }));
}

TEST(EventLoop, StopsAsSoonAsItIsDone) {
    EventLoop loop;
    int runs = 0;
    for (int piece = 0; piece < 3; ++piece) loop.post([&] { ++runs; });
    EXPECT_TRUE(loop.runUntil([&] { return runs == 2; }));
    EXPECT_EQ(runs, 2);
}

TEST(EventLoop, PassesOverATimerThatWasCancelledOrHasRun) {
    EventLoop loop{Instant{}};
    int runs = 0;
    const auto first = loop.at(Instant(1s), [&] { ++runs; });
    const auto second = loop.at(Instant(1s), [&] { runs += 10; });
    loop.cancel(first);
    loop.advance(2s);
    loop.cancel(second);
    EXPECT_EQ(runs, 10);
}

TEST(EventLoop, SleepsByTheRealClockWithoutAVirtualOne) {
    EventLoop loop;
    Pool pool;
    Scope scope(Runtime{loop, pool});
    const auto begun = std::chrono::steady_clock::now();
    bool slept = false;
    scope.start([](bool& result) -> Task<> { result = co_await sleepFor(20ms); }(slept));
    EXPECT_TRUE(loop.runUntil([&] { return scope.isEmpty(); }));
    EXPECT_TRUE(slept);
    EXPECT_GE(std::chrono::steady_clock::now() - begun, 19ms);  // two clocks
}

TEST(EventLoop, WaitsUntilItIsWokenOrHasWork) {
    EventLoop loop;
    std::thread waker([&] { loop.wake(); });
    loop.waitForWork();
    waker.join();
    bool hasRun = false;
    std::thread poster([&] { loop.post([&] { hasRun = true; }); });
    loop.waitForWork();
    poster.join();
    loop.runReady();
    EXPECT_TRUE(hasRun);
}

TEST(EventLoop, KnowsItsThread) {
    EventLoop loop;
    EXPECT_TRUE(loop.isMainThread());
    bool other = true;
    std::thread([&] { other = loop.isMainThread(); }).join();
    EXPECT_FALSE(other);
}

TEST(EventLoop, TellsHowLongEachTurnTook) {
    EventLoop loop;
    int turns = 0;
    loop.watchTurns([&](std::chrono::nanoseconds took) {
        EXPECT_GE(took, 0ns);
        ++turns;
    });
    loop.post([] {});
    loop.post([] {});
    loop.runReady();
    EXPECT_EQ(turns, 2);
}

}  // namespace
}  // namespace morvane
