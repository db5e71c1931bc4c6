#include <gmock/gmock.h>

#include "tasks/background.h"
#include "tasks/gates.h"
#include "tasks/sleep.h"
#include "tasks/workshop.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

Task<> tellWhetherCancelled(Workshop& shop) {
    shop.note(co_await isCancelled() ? "cancelled" : "wanted");
}

TEST(Cancelling, BeforeTheStartIsSeenByTheTask) {
    Workshop shop;
    const TaskHandle handle = shop.scope.start(tellWhetherCancelled(shop));
    EXPECT_TRUE(handle.isAtWork());
    EXPECT_FALSE(handle.isCancelled());
    handle.cancel();
    EXPECT_TRUE(handle.isCancelled());
    EXPECT_TRUE(handle.isAtWork());
    EXPECT_TRUE(shop.finish());
    EXPECT_FALSE(handle.isAtWork());
    EXPECT_THAT(shop.diary, ElementsAre("cancelled"));
}

TEST(Cancelling, ReachesOnlyTheTaskItself) {
    Workshop shop;
    const TaskHandle first = shop.scope.start(tellWhetherCancelled(shop));
    shop.scope.start(tellWhetherCancelled(shop));
    first.cancel();
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("cancelled", "wanted"));
}

TEST(Cancelling, DoesNothingByAnEmptyHandleOrAfterTheEnd) {
    Workshop shop;
    const TaskHandle empty;
    empty.cancel();
    EXPECT_FALSE(empty);
    EXPECT_FALSE(empty.isAtWork());
    TaskHandle ended = shop.scope.start(tellWhetherCancelled(shop));
    EXPECT_TRUE(shop.finish());
    ended.cancel();
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("wanted"));
    ended.reset();
    EXPECT_FALSE(ended);
}

Task<> sleepFirst(Workshop& shop, std::chrono::nanoseconds duration) {
    const bool slept = co_await sleepFor(duration);
    shop.note((slept ? "slept until " : "woken at ") +
              std::to_string((shop.loop.now() - Instant{}) / 1s));
}

TEST(Cancelling, EndsASleepAtOnce) {
    Workshop shop;
    const TaskHandle handle = shop.scope.start(sleepFirst(shop, 10s));
    shop.loop.advance(4s);
    handle.cancel();
    EXPECT_THAT(shop.diary, ElementsAre());  // whoever cancels goes on first
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("woken at 4"));
    shop.loop.advance(20s);
    EXPECT_THAT(shop.diary, ElementsAre("woken at 4"));
    EXPECT_TRUE(shop.scope.isEmpty());
}

TEST(Cancelling, LetsACancelledTaskNotSleepAtAll) {
    Workshop shop;
    const TaskHandle handle = shop.scope.start(sleepFirst(shop, 10s));
    handle.cancel();
    shop.loop.runReady();
    EXPECT_THAT(shop.diary, ElementsAre("woken at 0"));
}

TEST(Cancelling, TwiceIsCancellingOnce) {
    Workshop shop;
    const TaskHandle handle = shop.scope.start(sleepFirst(shop, 10s));
    shop.loop.runReady();
    handle.cancel();
    handle.cancel();
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("woken at 0"));
}

Task<> fetch(Workshop& shop, ThreadGate& gate) {
    const int value = co_await background([&gate](const StopToken& token) {
        gate.pass();
        return token.stop_requested() ? 1 : 2;
    });
    shop.note(std::to_string(value) + (co_await isCancelled() ? " cancelled" : " wanted"));
}

TEST(Cancelling, WaitsForTheFunctionInTheBackgroundAndTakesItsResult) {
    Workshop shop;
    ThreadGate gate;
    const TaskHandle handle = shop.scope.start(fetch(shop, gate));
    shop.loop.runReady();
    gate.waitForArrivals(1);
    handle.cancel();
    shop.loop.runReady();
    EXPECT_TRUE(handle.isAtWork());
    EXPECT_THAT(shop.diary, ElementsAre());
    gate.open();
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("1 cancelled"));
}

Task<> fetchNothing(Workshop& shop, std::thread::id& worker) {
    co_await background([&worker](const StopToken&) { worker = std::this_thread::get_id(); });
    shop.note(shop.loop.isMainThread() ? "on the main thread" : "elsewhere");
}

TEST(Background, RunsOffTheMainThreadAndComesBackToIt) {
    Workshop shop;
    std::thread::id worker;
    shop.scope.start(fetchNothing(shop, worker));
    EXPECT_TRUE(shop.finish());
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_THAT(shop.diary, ElementsAre("on the main thread"));
}

TEST(StopToken, NeverStopsWhenItIsEmpty) {
    const StopToken token;
    EXPECT_FALSE(token.stop_requested());
    EXPECT_FALSE(token.stop_possible());
    const StopCallback callback(token, [] { ADD_FAILURE(); });
}

TEST(StopToken, OutlivesItsSource) {
    StopToken token;
    {
        const StopSource source;
        token = source.get_token();
        EXPECT_TRUE(token.stop_possible());
        EXPECT_TRUE(source.request_stop());
        EXPECT_FALSE(source.request_stop());
    }
    EXPECT_TRUE(token.stop_requested());
}

TEST(StopCallback, RunsOnceInTheRequestingThread) {
    const StopSource source;
    std::vector<std::thread::id> runs;
    const StopCallback callback(source.get_token(),
                                [&] { runs.push_back(std::this_thread::get_id()); });
    std::thread::id requesting;
    std::thread([&] {
        requesting = std::this_thread::get_id();
        source.request_stop();
    }).join();
    source.request_stop();
    EXPECT_THAT(runs, ElementsAre(requesting));
}

TEST(StopCallback, RunsAtOnceWhenTheStopCameBefore) {
    const StopSource source;
    source.request_stop();
    int runs = 0;
    const StopCallback callback(source.get_token(), [&] { ++runs; });
    EXPECT_EQ(runs, 1);
}

TEST(StopCallback, DoesNotRunOnceItIsGone) {
    const StopSource source;
    {
        const StopCallback callback(source.get_token(), [] { ADD_FAILURE(); });
    }
    source.request_stop();
}

TEST(StopCallback, MayEndItselfAndOthersWhileItRuns) {
    const StopSource source;
    std::unique_ptr<StopCallback> own;
    auto other = std::make_unique<std::unique_ptr<StopCallback>>();
    int runs = 0;
    own = std::make_unique<StopCallback>(source.get_token(), [&] {
        ++runs;
        other.reset();
        own.reset();
        ++runs;
    });
    *other = std::make_unique<StopCallback>(source.get_token(), [] { ADD_FAILURE(); });
    source.request_stop();
    EXPECT_EQ(runs, 2);
}

TEST(StopCallback, IsWaitedForWhenItRunsOnAnotherThread) {
    const StopSource source;
    ThreadGate gate;
    std::atomic<bool> hasEnded{false};
    auto callback = std::make_unique<StopCallback>(source.get_token(), [&] {
        gate.pass();
        hasEnded = true;
    });
    std::thread requesting([&] { source.request_stop(); });
    gate.waitForArrivals(1);
    std::thread opening([&] { gate.open(); });
    callback.reset();
    EXPECT_TRUE(hasEnded);
    opening.join();
    requesting.join();
}

TEST(StopCallback, MayComeAndGoWhileTheStopIsRequested) {
    for (int round = 0; round < 200; ++round) {
        const StopSource source;
        std::atomic<int> runs{0};
        ThreadGate start;
        std::thread registering([&] {
            start.pass();
            for (int time = 0; time < 50; ++time) {
                const StopCallback callback(source.get_token(), [&] { ++runs; });
            }
        });
        start.waitForArrivals(1);
        start.open();
        source.request_stop();
        registering.join();
        EXPECT_LE(runs, 50);
        EXPECT_TRUE(source.stop_requested());
    }
}

}  // namespace
}  // namespace morvane
