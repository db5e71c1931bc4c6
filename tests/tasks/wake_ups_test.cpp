#include "tasks/wake_ups.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace morvane {
namespace {

TEST(WakeUps, GivenBeforeAnybodyWaitsAreNotLost) {
    WakeUps wakeUps;
    wakeUps.give();
    wakeUps.give();
    wakeUps.take();
    wakeUps.take();
}

TEST(WakeUps, EndOneWaitEach) {
    WakeUps wakeUps;
    std::atomic<int> taken{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int time = 0; time < 250; ++time) {
                wakeUps.take();
                ++taken;
            }
        });
    }
    for (int time = 0; time < 1'000; ++time) wakeUps.give();
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(taken, 1'000);
}

}  // namespace
}  // namespace morvane
