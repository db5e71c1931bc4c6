#include "tasks/scope.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace morvane {

namespace detail {

namespace {

// The coroutine that a started task's frame hangs on: it runs by itself and destroys itself.
struct Root {
    struct promise_type {
        TaskContext* context = nullptr;
        Root get_return_object() noexcept {
            return {std::coroutine_handle<promise_type>::from_promise(*this)};
        }
        [[nodiscard]] std::suspend_always initial_suspend() const noexcept { return {}; }
        [[nodiscard]] std::suspend_never final_suspend() const noexcept { return {}; }
        void return_void() const noexcept {}
        [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }
    };
    std::coroutine_handle<promise_type> handle;
};

Root runRoot(std::shared_ptr<StartedTask> state, Task<void> task,
             std::function<void(StartedTask&)> ended) {
    {
        // The frame and its arguments go before the end is told.
        Task<void> running = std::move(task);
        co_await std::move(running);
    }
    state->done = true;
    --state->context.work->tasks;
    for (const auto& waiter : std::exchange(state->waiters, {})) {
        state->context.runtime.executor.post(
            [waiter] { resumeWithin(*waiter.first, waiter.second); });
    }
    if (ended) ended(*state);
}

}  // namespace

std::shared_ptr<StartedTask> startTask(Runtime runtime, Task<void> task,
                                       std::function<void(StartedTask&)> ended) {
    StopSource source;
    auto work = currentWork() != nullptr ? currentWork() : std::make_shared<WorkInProgress>();
    ++work->tasks;
    auto state = std::make_shared<StartedTask>(
        StartedTask{TaskContext{runtime, source.get_token(), std::move(work)}, source, false, {}});
    const auto handle = runRoot(state, std::move(task), std::move(ended)).handle;
    handle.promise().context = &state->context;
    runtime.executor.post([state, handle] { resumeWithin(state->context, handle); });
    return state;
}

}  // namespace detail

TaskHandle Scope::start(Task<void> task) {
    auto started = detail::startTask(
        state_->runtime, std::move(task),
        [scope = std::weak_ptr(state_)](detail::StartedTask& ended) {
            const auto state = scope.lock();
            if (state == nullptr) return;
            std::erase_if(state->live, [&](const auto& task_) { return task_.get() == &ended; });
        });
    state_->live.push_back(started);
    if (state_->cancelled) started->source.request_stop();
    return TaskHandle(std::move(started));
}

void Scope::cancel() {
    state_->cancelled = true;
    const auto live = state_->live;
    for (const auto& task : live) task->source.request_stop();
}

Group::~Group() {
    assert(std::all_of(children_.begin(), children_.end(),
                       [](const Child& child) { return child.task->done; }));
}

TaskHandle Group::start(Task<void> task) {
    const WorkGuard within(parent_.work);
    auto started = detail::startTask(parent_.runtime, std::move(task), nullptr);
    auto link = std::make_unique<StopCallback>(
        parent_.token, [source = started->source] { source.request_stop(); });
    children_.push_back({started, std::move(link)});
    return TaskHandle(std::move(started));
}

Task<void> Group::wait() {
    for (std::size_t index = 0; index < children_.size(); ++index) {
        co_await TaskHandle(children_[index].task).ended();
    }
}

}  // namespace morvane
