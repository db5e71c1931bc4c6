#pragma once

#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "tasks/context.h"

namespace morvane {

// `co_await Answer<T>(ask)`: calls `ask` with a function that takes the answer, and goes on when
// that function has been called, which must be on the main thread, at a later turn, at most once.
template <class T>
class Answer {
public:
    using Ask = std::function<void(std::function<void(T)>)>;
    explicit Answer(Ask ask) : ask_(std::move(ask)) {}

    [[nodiscard]] bool await_ready() const noexcept { return false; }
    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> caller) {
        TaskContext* context = caller.promise().context;
        const Ask ask = std::move(ask_);
        ask([this, context, caller](T answer) {
            answer_ = std::move(answer);
            resumeWithin(*context, caller);
        });
    }
    T await_resume() { return std::move(*answer_); }

private:
    Ask ask_;
    std::optional<T> answer_;
};

}  // namespace morvane
