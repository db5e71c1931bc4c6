#pragma once

#include <atomic>
#include <condition_variable>
#include <coroutine>
#include <mutex>
#include <utility>
#include <vector>

#include "tasks/context.h"

namespace morvane {

// Holds a function of the pool until the test lets it go.
class ThreadGate {
public:
    void open() {
        {
            const std::lock_guard lock(mutex_);
            isOpen_ = true;
        }
        changed_.notify_all();
    }
    // Tells that it has got here, and waits.
    void pass() {
        std::unique_lock lock(mutex_);
        ++arrived_;
        changed_.notify_all();
        changed_.wait(lock, [&] { return isOpen_; });
    }
    void waitForArrivals(int count) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return arrived_ >= count; });
    }
    [[nodiscard]] int arrived() {
        const std::lock_guard lock(mutex_);
        return arrived_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int arrived_ = 0;
    bool isOpen_ = false;
};

// Holds tasks on the main thread: `co_await gate.pass()` goes on when the test opens it. The test
// goes on itself only after the tasks wait again.
class TaskGate {
public:
    struct Passing {
        TaskGate& gate;
        [[nodiscard]] bool await_ready() const noexcept { return gate.isOpen_; }
        template <class Promise>
        void await_suspend(std::coroutine_handle<Promise> caller) {
            gate.waiting_.emplace_back(caller.promise().context, caller);
        }
        void await_resume() const noexcept {}
    };
    [[nodiscard]] Passing pass() { return Passing{*this}; }
    [[nodiscard]] std::size_t waiting() const { return waiting_.size(); }
    void open() {
        isOpen_ = true;
        for (const auto& [context, caller] : std::exchange(waiting_, {})) {
            resumeWithin(*context, caller);
        }
    }

private:
    bool isOpen_ = false;
    std::vector<std::pair<TaskContext*, std::coroutine_handle<>>> waiting_;
};

// Counts how many of it live and how many were made or moved into being.
class Counted {
public:
    struct Counts {
        std::atomic<int> alive = 0;  // a function given to a pool dies there and here
        std::atomic<int> destroyed = 0;
    };
    explicit Counted(Counts& counts) : counts_(&counts) { ++counts_->alive; }
    Counted(const Counted& other) : counts_(other.counts_) { ++counts_->alive; }
    Counted(Counted&& other) noexcept : counts_(other.counts_) { ++counts_->alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() {
        --counts_->alive;
        ++counts_->destroyed;
    }

private:
    Counts* counts_;
};

}  // namespace morvane
