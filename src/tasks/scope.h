#pragma once

#include <coroutine>
#include <memory>
#include <vector>

#include "tasks/context.h"
#include "tasks/task.h"

namespace morvane {

namespace detail {

// A task that runs on its own: its context, its end, and who waits for it.
struct StartedTask {
    TaskContext context;
    StopSource source;
    bool done = false;
    std::vector<std::pair<TaskContext*, std::coroutine_handle<>>> waiters;
};

struct ScopeState {
    explicit ScopeState(Runtime where) : runtime(where) {}
    Runtime runtime;
    std::vector<std::shared_ptr<StartedTask>> live;
    bool cancelled = false;
};

// Begins `task` at a later turn, in a context of its own; `ended` runs when it has ended.
std::shared_ptr<StartedTask> startTask(Runtime runtime, Task<void> task,
                                       std::function<void(StartedTask&)> ended);

}  // namespace detail

// A started task, to cancel it, to ask for its end, or to await it. An empty handle stands for no
// task. Copies speak of the same task; dropping a handle does not cancel. Main thread only.
class TaskHandle {
public:
    TaskHandle() = default;

    // Asks the task and its children to stop; it ends in its own time.
    void cancel() const {
        if (task_ != nullptr) task_->source.request_stop();
    }
    [[nodiscard]] explicit operator bool() const { return task_ != nullptr; }
    [[nodiscard]] bool isAtWork() const { return task_ != nullptr && !task_->done; }
    [[nodiscard]] bool isCancelled() const {
        return task_ != nullptr && task_->source.stop_requested();
    }
    void reset() { task_ = nullptr; }

    // `co_await handle.ended()`: goes on once the task has ended, also when the awaiting task is
    // cancelled meanwhile. An empty handle has ended.
    struct Ended {
        std::shared_ptr<detail::StartedTask> task;
        [[nodiscard]] bool await_ready() const noexcept { return task == nullptr || task->done; }
        template <class Promise>
        void await_suspend(std::coroutine_handle<Promise> caller) {
            task->waiters.emplace_back(caller.promise().context, caller);
        }
        void await_resume() const noexcept {}
    };
    [[nodiscard]] Ended ended() const { return Ended{task_}; }

private:
    friend class Scope;
    friend class Group;
    explicit TaskHandle(std::shared_ptr<detail::StartedTask> task) : task_(std::move(task)) {}
    std::shared_ptr<detail::StartedTask> task_;
};

// Owns tasks that are not awaited where they are started. Their cancellation is their own: that of
// the task which starts them does not reach them. Main thread only.
class Scope {
public:
    explicit Scope(Runtime runtime) : state_(std::make_shared<detail::ScopeState>(runtime)) {}
    // Cancels what still runs and blocks nobody: the tasks end later, on the main loop.
    ~Scope() { cancel(); }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    // Begins at a later turn. In a cancelled scope the task starts out cancelled.
    TaskHandle start(Task<void> task);
    // Cancels every task, and every one that is started from now on.
    void cancel();
    // Whether every task that was started has ended.
    [[nodiscard]] bool isEmpty() const { return state_->live.empty(); }
    // How many of them have not.
    [[nodiscard]] std::size_t size() const { return state_->live.size(); }
    [[nodiscard]] Runtime runtime() const { return state_->runtime; }

private:
    std::shared_ptr<detail::ScopeState> state_;
};

// The children of the running task: `Group group(co_await currentContext());` A cancelled parent
// takes them along. `co_await group.wait()` before the group goes. Main thread only.
class Group {
public:
    explicit Group(TaskContext& parent) : parent_(parent) {}
    ~Group();
    Group(const Group&) = delete;
    Group& operator=(const Group&) = delete;

    // Begins at a later turn, in the order of the calls.
    TaskHandle start(Task<void> task);
    // Goes on once every child has ended.
    Task<void> wait();

private:
    struct Child {
        std::shared_ptr<detail::StartedTask> task;
        std::unique_ptr<StopCallback> link;
    };
    TaskContext& parent_;
    std::vector<Child> children_;
};

}  // namespace morvane
