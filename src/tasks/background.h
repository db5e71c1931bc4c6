#pragma once

#include <coroutine>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

#include "tasks/context.h"

namespace morvane {

namespace detail {

// What a function of the pool returned; a function without a result returns an empty mark.
struct Nothing {};
template <class R>
using Held = std::conditional_t<std::is_void_v<R>, Nothing, R>;

template <class Function>
class BackgroundAwaiter {
    using Result = std::invoke_result_t<Function&, const StopToken&>;

public:
    explicit BackgroundAwaiter(Function function) : function_(std::move(function)) {}

    [[nodiscard]] bool await_ready() const noexcept { return false; }

    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> caller) {
        TaskContext* context = caller.promise().context;
        Executor& executor = context->runtime.executor;
        executor.backgroundWorkBegan();
        context->runtime.pool.post([this, context, caller, &executor] {
            if constexpr (std::is_void_v<Result>) {
                function_(context->token);
                result_.emplace();
            } else {
                result_.emplace(function_(context->token));
            }
            // After the post this frame may be gone: nothing of it is touched any more.
            executor.post([context, caller, &executor] {
                executor.backgroundWorkEnded();
                resumeWithin(*context, caller);
            });
        });
    }

    Result await_resume() {
        if constexpr (!std::is_void_v<Result>) return std::move(*result_);
    }

private:
    Function function_;
    std::optional<Held<Result>> result_;
};

}  // namespace detail

// `co_await background(function)`: runs `function(token)` on the pool with the caller's
// cancellation and hands over what it returned, on the main thread, once it has returned. A
// cancelled caller still waits for the function and then asks whether it was cancelled.
template <class Function>
[[nodiscard]] auto background(Function function) {
    return detail::BackgroundAwaiter<Function>(std::move(function));
}

}  // namespace morvane
