#include "platform/linux/qt_executor.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <thread>

#include "tasks/executor_laws.h"

namespace morvane::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

void turnUntil(const std::function<bool()>& done) {
    QEventLoop loop;
    while (!done()) loop.processEvents(QEventLoop::WaitForMoreEvents);
}

template <bool isVirtual>
class WindowLoop {
public:
    Executor& executor() { return executor_; }
    void runUntil(const std::function<bool()>& done) { turnUntil(done); }

private:
    QtExecutor executor_{isVirtual ? RunningClock(Instant(1795262400s)) : RunningClock()};
};

using Loops = testing::Types<WindowLoop<false>, WindowLoop<true>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Window, ExecutorLaws, Loops);

TEST(RunningClock, GoesOnFromTheMomentItIsGiven) {
    const auto before = std::chrono::steady_clock::now();
    const RunningClock clock(Instant(1795262400s));
    const Instant first = clock.now();
    while (std::chrono::steady_clock::now() < before + 5ms) std::this_thread::yield();
    const Instant second = clock.now();
    const auto elapsed = std::chrono::steady_clock::now() - before;
    EXPECT_GE(first, Instant(1795262400s));
    EXPECT_GT(second, first);
    EXPECT_LE(second, Instant(1795262400s) + elapsed);
}

TEST(RunningClock, IsTheMachinesOtherwise) {
    const Instant before = std::chrono::system_clock::now();
    const Instant shown = RunningClock().now();
    EXPECT_GE(shown, before);
    EXPECT_LE(shown, std::chrono::system_clock::now());
}

TEST(QtExecutor, LetsTheWindowHaveItsTurnHoweverMuchIsPosted) {
    QtExecutor executor{RunningClock()};
    bool stops = false;
    int pieces = 0;
    std::function<void()> again = [&] {
        ++pieces;
        if (!stops) executor.post(again);
    };
    executor.post(again);
    bool drawn = false;
    QTimer::singleShot(1, [&] { drawn = true; });
    turnUntil([&] { return drawn; });
    stops = true;
    const int before = pieces;
    turnUntil([&] { return pieces > before; });
    EXPECT_GT(before, 0);
}

TEST(QtExecutor, RunsWhatIsPostedAndWhatIsDueWithoutTheWindowsLoop) {
    QtExecutor executor{RunningClock()};
    std::vector<std::string> order;
    bool isDone = false;
    executor.post([&] {
        order.emplace_back("posted");
        executor.at(executor.now() + 1ms, [&] {
            order.emplace_back("due");
            std::thread([&] { executor.post([&] { isDone = true; }); }).join();
        });
    });
    QTimer::singleShot(0, [&] { order.emplace_back("the window's"); });
    executor.runWithoutLoop([&] { return isDone; });
    EXPECT_THAT(order, ElementsAre("posted", "due"));
    bool goesOn = false;
    executor.post([&] { goesOn = true; });
    turnUntil([&] { return goesOn; });
}

TEST(QtExecutor, LetsTheWindowHaveItsTurnHoweverManyTimersAreDue) {
    QtExecutor executor{RunningClock()};
    bool stops = false;
    std::function<void()> again = [&] {
        if (!stops) executor.at(executor.now(), again);
    };
    executor.at(executor.now(), again);
    bool drawn = false;
    QTimer::singleShot(1, [&] { drawn = true; });
    turnUntil([&] { return drawn; });
    stops = true;
    EXPECT_TRUE(drawn);
}

// The machine's date is put forward by an hour while a timer waits for half of one.
TEST(QtExecutor, NoticesThatTheDateWasPutForward) {
    std::atomic<std::int64_t> hours = 0;
    const auto begun = std::chrono::steady_clock::now();
    QtExecutor executor(
        [&] {
            return Instant(std::chrono::hours(hours)) + (std::chrono::steady_clock::now() - begun);
        },
        20ms);
    bool ran = false;
    executor.at(Instant(30min), [&] { ran = true; });
    executor.post([&] { hours = 1; });
    turnUntil([&] { return ran; });
    EXPECT_TRUE(ran);
}

TEST(QtExecutor, WaitsOnWhenTheDateWasPutBack) {
    std::atomic<std::int64_t> hours = 1;
    const auto begun = std::chrono::steady_clock::now();
    QtExecutor executor(
        [&] {
            return Instant(std::chrono::hours(hours)) + (std::chrono::steady_clock::now() - begun);
        },
        5ms);
    std::vector<std::string> order;
    executor.at(Instant(1h + 10ms), [&] { order.emplace_back("by the date"); });
    hours = 0;
    executor.at(Instant(30ms), [&] {
        order.emplace_back("meanwhile");
        hours = 1;
    });
    turnUntil([&] { return order.size() == 2; });
    EXPECT_THAT(order, ElementsAre("meanwhile", "by the date"));
}

TEST(QtExecutor, TellsHowLongEachPieceOfWorkTook) {
    QtExecutor executor{RunningClock()};
    int turns = 0;
    executor.watchTurns([&](std::chrono::nanoseconds took) {
        EXPECT_GE(took, 0ns);
        ++turns;
    });
    executor.post([] {});
    executor.at(executor.now(), [] {});
    turnUntil([&] { return turns == 2; });
    EXPECT_EQ(turns, 2);
}

}  // namespace
}  // namespace morvane::linuxdesktop
