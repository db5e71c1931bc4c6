#include "tasks/pool.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tasks/gates.h"

namespace morvane {
namespace {

TEST(Pool, IsAsWideAsTheMachineAndAtLeastTwo) {
    const Pool pool;
    EXPECT_GE(pool.width(), 2U);
    EXPECT_EQ(Pool(7).width(), 7U);
}

TEST(Pool, StandsBackBehindTheMainThreadByTheSameStepsHoweverItsThreadsStart) {
    const auto nice = [] { return ::getpriority(PRIO_PROCESS, 0); };
    const int own = nice();
    int ofFirst = 0;
    int ofSecond = 0;
    {
        Pool pool(1);
        pool.post([&] {
            ofFirst = nice();
            ThreadGate gate;
            pool.post([&] {
                ofSecond = nice();
                gate.pass();
            });
            // The second thread is started by the first one, which waits for it.
            const Pool::Blocking blocking;
            gate.waitForArrivals(1);
            gate.open();
        });
    }
    EXPECT_EQ(nice(), own);
    EXPECT_EQ(ofFirst, std::min(own + 5, 19));
    EXPECT_EQ(ofSecond, ofFirst);
}

TEST(Pool, WaitsInItsDestructorForAllThatWasPosted) {
    std::atomic<int> runs{0};
    {
        Pool pool(2);
        for (int work = 0; work < 100; ++work) {
            pool.post([&] {
                ++runs;
                pool.post([&] { ++runs; });
            });
        }
    }
    EXPECT_EQ(runs, 200);
}

TEST(Pool, RunsNoMoreAtOnceThanItsWidth) {
    std::atomic<int> running{0};
    std::atomic<int> most{0};
    {
        Pool pool(3);
        for (int work = 0; work < 300; ++work) {
            pool.post([&] {
                const int now = ++running;
                int seen = most;
                while (seen < now && !most.compare_exchange_weak(seen, now)) {
                }
                std::this_thread::yield();
                --running;
            });
        }
    }
    EXPECT_LE(most, 3);
}

TEST(Pool, RunsAsManyAtOnceAsItsWidth) {
    ThreadGate gate;
    Pool pool(3);
    for (int work = 0; work < 4; ++work) {
        pool.post([&] { gate.pass(); });
    }
    gate.waitForArrivals(3);
    EXPECT_EQ(gate.arrived(), 3);
    gate.open();
}

TEST(Pool, LetsAnotherRunWhileOneBlocks) {
    ThreadGate blocked;
    ThreadGate others;
    Pool pool(1);
    pool.post([&] {
        const Pool::Blocking blocking;
        blocked.pass();
    });
    blocked.waitForArrivals(1);
    pool.post([&] {
        const Pool::Blocking blocking;
        others.pass();
    });
    pool.post([&] { others.pass(); });
    others.waitForArrivals(2);
    others.open();
    blocked.open();
}

TEST(Pool, CountsOneThatBlockedAgainOnceItGoesOn) {
    ThreadGate blocked;
    ThreadGate after;
    ThreadGate next;
    std::atomic<bool> hasNextRun{false};
    Pool pool(1);
    pool.post([&] {
        {
            const Pool::Blocking blocking;
            blocked.pass();
        }
        after.pass();
    });
    blocked.waitForArrivals(1);
    blocked.open();
    after.waitForArrivals(1);
    pool.post([&] {
        hasNextRun = true;
        next.pass();
    });
    EXPECT_FALSE(hasNextRun);
    after.open();
    next.waitForArrivals(1);
    next.open();
}

TEST(Pool, LetsAThreadOfItsOwnNotBeBlocked) {
    const Pool::Blocking blocking;  // no pool's thread: nothing happens
}

TEST(Pool, DestroysAFunctionOnceItHasRun) {
    Counted::Counts counts;
    {
        Pool pool(1);
        pool.post([kept = Counted(counts)] {});
    }
    EXPECT_EQ(counts.alive, 0);
}

TEST(Pool, TakesWorkFromManyThreads) {
    std::atomic<int> runs{0};
    {
        Pool pool(2);
        std::vector<std::thread> posters;
        for (int poster = 0; poster < 4; ++poster) {
            posters.emplace_back([&] {
                for (int work = 0; work < 500; ++work) {
                    pool.post([&, work] {
                        if (work % 7 == 0) {
                            const Pool::Blocking blocking;
                            std::this_thread::yield();
                        }
                        ++runs;
                    });
                }
            });
        }
        for (std::thread& poster : posters) poster.join();
    }
    EXPECT_EQ(runs, 2000);
}

}  // namespace
}  // namespace morvane
