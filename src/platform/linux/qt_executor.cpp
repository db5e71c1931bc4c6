#include "platform/linux/qt_executor.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QTimerEvent>
#include <algorithm>

namespace morvane::linuxdesktop {

namespace {

using std::chrono::steady_clock;

// How long posted work may keep the window's own events waiting before they have their turn.
constexpr std::chrono::milliseconds slice{4};

QEvent::Type wakeType() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

}  // namespace

QtExecutor::QtExecutor(Clock clock, std::chrono::milliseconds wait)
    : clock_(std::move(clock)), longestWait_(wait) {}

void QtExecutor::post(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    queue_.push_back(std::move(work));
    if (isWoken_) return;
    isWoken_ = true;
    QCoreApplication::postEvent(this, new QEvent(wakeType()));
}

Executor::Timer QtExecutor::at(Instant due, std::function<void()> work) {
    const Timer timer = ++lastTimer_;
    timers_.emplace(std::pair(due, timer), std::move(work));
    armTimer();
    return timer;
}

void QtExecutor::cancel(Timer timer) {
    const auto found = std::find_if(timers_.begin(), timers_.end(),
                                    [&](const auto& entry) { return entry.first.second == timer; });
    if (found == timers_.end()) return;
    // The work may own what asks for the time or cancels in turn when it goes.
    const Work dropped = std::move(found->second);
    timers_.erase(found);
    armTimer();
}

void QtExecutor::watchTurns(std::function<void(std::chrono::nanoseconds)> watcher) {
    turnWatcher_ = std::move(watcher);
}

void QtExecutor::runWithoutLoop(const std::function<bool()>& done) {
    mainThread_ = std::this_thread::get_id();
    while (!done()) {
        runDueTimers();
        if (Work work = takePosted()) {
            run(std::move(work));
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
}

bool QtExecutor::event(QEvent* event) {
    if (event->type() != wakeType()) return QObject::event(event);
    runPosted();
    return true;
}

void QtExecutor::timerEvent(QTimerEvent* event) {
    if (event->timerId() == nextTurn_.timerId()) {
        nextTurn_.stop();
        runPosted();
    } else if (event->timerId() == sleep_.timerId()) {
        sleep_.stop();
        runDueTimers();
        armTimer();
    }
}

void QtExecutor::runPosted() {
    const auto end = steady_clock::now() + slice;
    while (true) {
        Work work;
        {
            const std::lock_guard lock(mutex_);
            if (queue_.empty()) {
                isWoken_ = false;
                return;
            }
            // Not by an event of our own: the toolkit would hand that over within this same turn.
            if (steady_clock::now() >= end) {
                nextTurn_.start(0, this);
                return;
            }
            work = std::move(queue_.front());
            queue_.pop_front();
        }
        run(std::move(work));
    }
}

QtExecutor::Work QtExecutor::takePosted() {
    const std::lock_guard lock(mutex_);
    if (queue_.empty()) return {};
    Work work = std::move(queue_.front());
    queue_.pop_front();
    return work;
}

void QtExecutor::runDueTimers() {
    const auto end = steady_clock::now() + slice;
    while (!timers_.empty() && timers_.begin()->first.first <= now()) {
        if (steady_clock::now() >= end) return;
        Work work = std::move(timers_.begin()->second);
        timers_.erase(timers_.begin());
        run(std::move(work));
    }
}

void QtExecutor::run(Work work) {
    const auto begin = steady_clock::now();
    work();
    work = nullptr;
    if (turnWatcher_) turnWatcher_(steady_clock::now() - begin);
}

// The toolkit's timers run on a clock that knows no date and stands still while the machine sleeps:
// so the wait is cut into pieces, and what is left is reckoned anew after each.
void QtExecutor::armTimer() {
    if (timers_.empty()) return sleep_.stop();
    const Instant present = now();
    // Held against the longest wait first: a due far away is more than a difference can hold.
    const Instant due = std::clamp(timers_.begin()->first.first, present, present + longestWait_);
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(due - present);
    sleep_.start(static_cast<int>(wait.count()), Qt::PreciseTimer, this);
}

}  // namespace morvane::linuxdesktop
