#pragma once

#include <atomic>
#include <chrono>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tasks/background.h"
#include "tasks/pool.h"
#include "tasks/scope.h"
#include "tasks/sleep.h"

namespace morvane {

// What holds for every main loop. `Loop` has an `executor()` with a clock that goes on, and
// `runUntil(done)`, which runs it until that is so.
template <class Loop>
class ExecutorLaws : public testing::Test {
protected:
    Loop loop;
    Executor& executor = loop.executor();
};
TYPED_TEST_SUITE_P(ExecutorLaws);

TYPED_TEST_P(ExecutorLaws, RunsWhatIsPostedInOrderAndAtALaterTurn) {
    std::vector<int> order;
    this->executor.post([&] {
        order.push_back(1);
        this->executor.post([&] { order.push_back(3); });
        order.push_back(2);
    });
    EXPECT_TRUE(order.empty());
    this->loop.runUntil([&] { return order.size() == 3; });
    EXPECT_THAT(order, testing::ElementsAre(1, 2, 3));
}

TYPED_TEST_P(ExecutorLaws, RunsWhatOtherThreadsPostOnItsOwn) {
    int sum = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int piece = 0; piece < 250; ++piece) {
                this->executor.post([&] {
                    EXPECT_TRUE(this->executor.isMainThread());
                    ++sum;
                });
            }
        });
    }
    this->loop.runUntil([&] { return sum == 1000; });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(sum, 1000);
}

TYPED_TEST_P(ExecutorLaws, RunsTimersByTheirTimeAndNoneTooEarly) {
    using namespace std::chrono_literals;
    std::vector<std::string> order;
    const Instant begun = this->executor.now();
    const auto note = [&](const std::string& name, Instant due) {
        this->executor.at(due, [&, name, due] {
            EXPECT_GE(this->executor.now(), due);
            order.push_back(name);
        });
    };
    note("c", begun + 30ms);
    note("a", begun - 1h);
    note("b", begun + 10ms);
    note("b too", begun + 10ms);
    EXPECT_TRUE(order.empty());
    this->loop.runUntil([&] { return order.size() == 4; });
    EXPECT_THAT(order, testing::ElementsAre("a", "b", "b too", "c"));
}

TYPED_TEST_P(ExecutorLaws, PassesOverATimerThatWasCancelledOrHasRun) {
    using namespace std::chrono_literals;
    const Instant begun = this->executor.now();
    std::vector<int> order;
    Executor::Timer second = 0;
    this->executor.at(Instant::max(), [&] { order.push_back(9); });
    const auto first = this->executor.at(begun, [&] {
        order.push_back(1);
        this->executor.cancel(second);
    });
    second = this->executor.at(begun, [&] { order.push_back(2); });
    this->executor.at(begun + 5ms, [&] {
        this->executor.cancel(first);
        order.push_back(3);
    });
    this->loop.runUntil([&] { return order.size() == 2; });
    EXPECT_THAT(order, testing::ElementsAre(1, 3));
}

TYPED_TEST_P(ExecutorLaws, LetsGoOfWhatAPieceOfWorkHeldAsSoonAsItHasRun) {
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watched = held;
    this->executor.post([held = std::move(held)] {});
    const auto cancelled = std::make_shared<int>(0);
    this->executor.cancel(this->executor.at(Instant::max(), [cancelled] {}));
    EXPECT_EQ(cancelled.use_count(), 1);
    bool isGone = false;
    this->executor.post([&] { isGone = watched.expired(); });
    this->loop.runUntil([&] { return isGone; });
    EXPECT_TRUE(isGone);
}

TYPED_TEST_P(ExecutorLaws, KnowsItsThread) {
    EXPECT_TRUE(this->executor.isMainThread());
    bool other = true;
    std::thread([&] { other = this->executor.isMainThread(); }).join();
    EXPECT_FALSE(other);
}

TYPED_TEST_P(ExecutorLaws, CarriesTasksThatSleepAndWorkInTheBackground) {
    using namespace std::chrono_literals;
    Pool pool{2};
    Scope scope{Runtime{this->executor, pool}};
    std::vector<std::string> diary;
    scope.start([](Executor& executor, std::vector<std::string>& notes) -> Task<> {
        const Instant begun = executor.now();
        co_await sleepFor(10ms);
        if (executor.now() >= begun + 10ms) notes.emplace_back("slept");
        const bool away =
            co_await background([&executor](const StopToken&) { return !executor.isMainThread(); });
        if (away) notes.emplace_back("was away");
        if (executor.isMainThread()) notes.emplace_back("is back");
    }(this->executor, diary));
    this->loop.runUntil([&] { return scope.isEmpty(); });
    EXPECT_THAT(diary, testing::ElementsAre("slept", "was away", "is back"));
}

REGISTER_TYPED_TEST_SUITE_P(ExecutorLaws, RunsWhatIsPostedInOrderAndAtALaterTurn,
                            RunsWhatOtherThreadsPostOnItsOwn, RunsTimersByTheirTimeAndNoneTooEarly,
                            PassesOverATimerThatWasCancelledOrHasRun,
                            LetsGoOfWhatAPieceOfWorkHeldAsSoonAsItHasRun, KnowsItsThread,
                            CarriesTasksThatSleepAndWorkInTheBackground);

}  // namespace morvane
