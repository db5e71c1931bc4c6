#include "tasks/sleep.h"

namespace morvane {

bool sleepFor::begin(TaskContext& context, std::coroutine_handle<> caller) {
    if (context.token.stop_requested()) return false;
    context_ = &context;
    caller_ = caller;
    Executor& executor = context.runtime.executor;
    timer_ = executor.at(executor.now() + duration_, [this] {
        slept_ = true;
        wake();
    });
    // Tasks are cancelled on the main thread, so the timer cannot fire between these two lines.
    onStop_ = std::make_unique<StopCallback>(context.token, [this] {
        context_->runtime.executor.cancel(timer_);
        // Whoever cancels goes on first: the task wakes at a turn of its own.
        context_->runtime.executor.post([this] { wake(); });
    });
    return true;
}

void sleepFor::wake() {
    onStop_.reset();
    resumeWithin(*context_, caller_);
}

}  // namespace morvane
