#pragma once

#include <coroutine>
#include <functional>
#include <memory>

#include "tasks/executor.h"
#include "tasks/pool.h"
#include "tasks/stop_token.h"

namespace morvane {

// All tasks that were started in the course of one request, directly or by one another. Whoever
// asked for the work waits here for all of it. Main thread only.
struct WorkInProgress {
    int tasks = 0;
};

// Where tasks run: the main loop and the pool. Both outlive every task.
struct Runtime {
    Executor& executor;
    Pool& pool;
};

// What a task carries along: awaited tasks share their caller's, a started one has its own.
struct TaskContext {
    Runtime runtime;
    StopToken token;
    std::shared_ptr<WorkInProgress> work;
};

// The work in whose course the main thread runs at present, or none.
[[nodiscard]] const std::shared_ptr<WorkInProgress>& currentWork();

// While it lives, tasks started on the main thread belong to `work`.
class WorkGuard {
public:
    explicit WorkGuard(std::shared_ptr<WorkInProgress> work);
    ~WorkGuard();
    WorkGuard(const WorkGuard&) = delete;
    WorkGuard& operator=(const WorkGuard&) = delete;

private:
    std::shared_ptr<WorkInProgress> former_;
};

// Goes on with a suspended task, in the course of the work it belongs to. Main thread.
void resumeWithin(const TaskContext& context, std::coroutine_handle<> suspended);

}  // namespace morvane
