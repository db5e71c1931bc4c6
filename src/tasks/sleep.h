#pragma once

#include <coroutine>
#include <memory>

#include "tasks/context.h"

namespace morvane {

// `co_await sleepFor(duration)`: true when the executor's clock has moved on by `duration`, false,
// and at once, when the task has been cancelled before.
class sleepFor {
public:
    explicit sleepFor(std::chrono::nanoseconds duration) : duration_(duration) {}

    [[nodiscard]] bool await_ready() const noexcept { return false; }
    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> caller) {
        return begin(*caller.promise().context, caller);
    }
    bool await_resume() noexcept { return slept_; }

private:
    bool begin(TaskContext& context, std::coroutine_handle<> caller);
    void wake();

    std::chrono::nanoseconds duration_;
    TaskContext* context_ = nullptr;
    std::coroutine_handle<> caller_;
    Executor::Timer timer_ = 0;
    std::unique_ptr<StopCallback> onStop_;
    bool slept_ = false;
};

}  // namespace morvane
