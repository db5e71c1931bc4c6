#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QObject>
#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/linux/running_clock.h"
#include "tasks/executor.h"

namespace morvane::linuxdesktop {

// The window's event loop as an executor. What is posted runs between the window's own events, a
// few milliseconds' worth at a time, so that however much is posted, frames are drawn and keys are
// read in between. Timers follow the clock: one is never early, and when the machine's date is
// changed, or the machine has slept, it is late by `longestWait` at most. Belongs to the thread
// that made it, which has an application object and runs its loop; work that is left when the
// executor goes does not run.
class QtExecutor final : public QObject, public Executor {
public:
    using Clock = std::function<Instant()>;

    static constexpr std::chrono::milliseconds longestWait{10'000};

    // `clock` tells the time on any thread.
    explicit QtExecutor(Clock clock, std::chrono::milliseconds wait = longestWait);
    explicit QtExecutor(const RunningClock& clock) : QtExecutor([clock] { return clock.now(); }) {}
    ~QtExecutor() override = default;

    void post(std::function<void()> work) override;
    Timer at(Instant due, std::function<void()> work) override;
    void cancel(Timer timer) override;
    [[nodiscard]] Instant now() const override { return clock_(); }
    [[nodiscard]] bool isMainThread() const override {
        return std::this_thread::get_id() == mainThread_;
    }

    // Runs what is posted and what is due until `done` says so, without the window's loop: for when
    // that cannot turn any more. The calling thread is the main one from here on; the former one
    // does nothing with this any more.
    void runWithoutLoop(const std::function<bool()>& done);

    // Told after each piece of work how long it took; for measuring what holds the window up.
    void watchTurns(std::function<void(std::chrono::nanoseconds)> watcher);

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    using Work = std::function<void()>;

    void runPosted();
    [[nodiscard]] Work takePosted();
    void runDueTimers();
    void run(Work work);
    void armTimer();

    Clock clock_;
    std::chrono::milliseconds longestWait_;
    std::atomic<std::thread::id> mainThread_ = std::this_thread::get_id();

    std::mutex mutex_;
    std::deque<Work> queue_;
    bool isWoken_ = false;  // somebody will look at the queue; guarded too

    // Main thread only.
    std::map<std::pair<Instant, Timer>, Work> timers_;
    Timer lastTimer_ = 0;
    QBasicTimer sleep_;     // until the next timer is due
    QBasicTimer nextTurn_;  // for what is left of the queue
    std::function<void(std::chrono::nanoseconds)> turnWatcher_;
};

}  // namespace morvane::linuxdesktop
