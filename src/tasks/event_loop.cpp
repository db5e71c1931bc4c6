#include "tasks/event_loop.h"

#include <algorithm>
#include <utility>

namespace morvane {

EventLoop::EventLoop(std::optional<Instant> start)
    : virtualNow_(start), mainThread_(std::this_thread::get_id()) {}

void EventLoop::post(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(work));
    }
    ready_.notify_one();
}

Executor::Timer EventLoop::at(Instant due, std::function<void()> work) {
    const Timer timer = ++lastTimer_;
    timers_.emplace(std::pair(due, timer), std::move(work));
    return timer;
}

void EventLoop::cancel(Timer timer) {
    std::erase_if(timers_, [&](const auto& entry) { return entry.first.second == timer; });
}

Instant EventLoop::now() const {
    // Which clock it is never changes; only the virtual one is moved, and needs the lock.
    if (!hasVirtualClock()) return Instant(std::chrono::system_clock::now());
    const std::lock_guard lock(mutex_);
    return *virtualNow_;
}

bool EventLoop::isMainThread() const {
    return std::this_thread::get_id() == mainThread_;
}

void EventLoop::backgroundWorkBegan() {
    ++backgroundWork_;
}
void EventLoop::backgroundWorkEnded() {
    --backgroundWork_;
}

void EventLoop::watchTurns(std::function<void(std::chrono::nanoseconds)> watcher) {
    turnWatcher_ = std::move(watcher);
}

bool EventLoop::runOne() {
    std::function<void()> work;
    {
        const std::lock_guard lock(mutex_);
        if (queue_.empty()) return false;
        work = std::move(queue_.front());
        queue_.pop_front();
    }
    const auto begin = std::chrono::steady_clock::now();
    work();
    work = nullptr;
    if (turnWatcher_) turnWatcher_(std::chrono::steady_clock::now() - begin);
    return true;
}

bool EventLoop::runDueTimer() {
    if (timers_.empty() || timers_.begin()->first.first > now()) return false;
    const auto work = std::move(timers_.begin()->second);
    timers_.erase(timers_.begin());
    work();
    return true;
}

std::optional<Instant> EventLoop::nextDue() const {
    if (timers_.empty()) return std::nullopt;
    return timers_.begin()->first.first;
}

void EventLoop::runReady() {
    while (runOne() || (!hasVirtualClock() && runDueTimer())) {
    }
}

bool EventLoop::runUntil(const std::function<bool()>& done) {
    while (!done()) {
        if (runOne()) continue;
        if (runDueTimer()) continue;
        const std::optional<Instant> due = nextDue();
        if (backgroundWork_ == 0 && hasVirtualClock()) {
            if (!due) return false;
            const std::lock_guard lock(mutex_);
            virtualNow_ = std::max(*virtualNow_, *due);
            continue;
        }
        if (backgroundWork_ == 0 && !due) return false;
        std::unique_lock lock(mutex_);
        const auto isReady = [&] { return !queue_.empty(); };
        if (due && !virtualNow_) {
            ready_.wait_until(
                lock,
                std::chrono::time_point_cast<std::chrono::system_clock::duration>(*due) +
                    std::chrono::microseconds(1),
                isReady);
        } else {
            ready_.wait(lock, isReady);
        }
    }
    return true;
}

void EventLoop::advance(std::chrono::nanoseconds duration) {
    const Instant end = now() + duration;
    while (true) {
        runReady();
        // A sleep that is already due, begun by what has just run, belongs to this instant.
        if (runDueTimer()) continue;
        const std::optional<Instant> due = nextDue();
        const Instant next = due ? std::min(*due, end) : end;
        if (now() >= end) break;
        const std::lock_guard lock(mutex_);
        virtualNow_ = std::max(*virtualNow_, next);
    }
}

void EventLoop::waitForWork() {
    const std::optional<Instant> due = nextDue();
    std::unique_lock lock(mutex_);
    const auto isReady = [&] { return woken_ || !queue_.empty(); };
    if (due && !virtualNow_) {
        ready_.wait_until(
            lock, std::chrono::time_point_cast<std::chrono::system_clock::duration>(*due), isReady);
    } else {
        ready_.wait(lock, isReady);
    }
    woken_ = false;
}

void EventLoop::wake() {
    {
        const std::lock_guard lock(mutex_);
        woken_ = true;
    }
    ready_.notify_one();
}

}  // namespace morvane
