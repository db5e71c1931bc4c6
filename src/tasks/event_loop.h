#pragma once

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

#include "tasks/executor.h"

namespace morvane {

// A main loop without a window, cranked by the thread that made it, with the real clock or a
// virtual one. A virtual clock moves only by `advance` and by `runUntil` jumping to a sleep.
class EventLoop : public Executor {
public:
    // With `start` the clock is virtual and shows that moment.
    explicit EventLoop(std::optional<Instant> start = std::nullopt);

    void post(std::function<void()> work) override;
    Timer at(Instant due, std::function<void()> work) override;
    void cancel(Timer timer) override;
    [[nodiscard]] Instant now() const override;
    [[nodiscard]] bool isMainThread() const override;
    void backgroundWorkBegan() override;
    void backgroundWorkEnded() override;

    [[nodiscard]] bool hasVirtualClock() const { return virtualNow_.has_value(); }

    // Runs what is ready until nothing is, real timers that are due too. Does not wait.
    void runReady();

    // Runs until `done` says so, asked after each turn. Waits for background work; with a virtual
    // clock and nothing left but sleeps, jumps to the next one that is due. Returns false when
    // nothing is left that could ever make it so.
    bool runUntil(const std::function<bool()>& done);

    // Moves a virtual clock on by `duration`, which is not negative: before it moves, at each due
    // instant in turn, and at its end, all that is ready runs. Does not wait for background work.
    void advance(std::chrono::nanoseconds duration);

    // Waits until something is ready, `wake` is called, or a real timer is due. Then returns.
    void waitForWork();
    // Ends a waitForWork. Any thread.
    void wake();

    // Told after each piece of work how long it took; for measuring what holds the loop up.
    void watchTurns(std::function<void(std::chrono::nanoseconds)> watcher);

private:
    using Timers = std::map<std::pair<Instant, Timer>, std::function<void()>>;

    bool runOne();
    bool runDueTimer();  // with the clock as it stands
    [[nodiscard]] std::optional<Instant> nextDue() const;

    mutable std::mutex mutex_;
    std::condition_variable ready_;
    std::deque<std::function<void()>> queue_;
    bool woken_ = false;
    std::optional<Instant> virtualNow_;  // guarded, since any thread may ask for the time

    // Main thread only.
    Timers timers_;
    Timer lastTimer_ = 0;
    int backgroundWork_ = 0;
    std::thread::id mainThread_;
    std::function<void(std::chrono::nanoseconds)> turnWatcher_;
};

}  // namespace morvane
