#include "tasks/context.h"

#include <utility>

namespace morvane {

namespace {
std::shared_ptr<WorkInProgress>& current() {
    thread_local std::shared_ptr<WorkInProgress> work;
    return work;
}
}  // namespace

const std::shared_ptr<WorkInProgress>& currentWork() {
    return current();
}

WorkGuard::WorkGuard(std::shared_ptr<WorkInProgress> work)
    : former_(std::exchange(current(), std::move(work))) {}

WorkGuard::~WorkGuard() {
    current() = std::move(former_);
}

void resumeWithin(const TaskContext& context, std::coroutine_handle<> suspended) {
    // The context may go with the coroutine, so the guard holds its own share of the work.
    const WorkGuard guard(context.work);
    suspended.resume();
}

}  // namespace morvane
