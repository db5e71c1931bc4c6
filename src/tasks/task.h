#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

#include "tasks/context.h"

namespace morvane {

template <class T = void>
class Task;

namespace detail {

struct TaskPromiseBase {
    std::coroutine_handle<> continuation;
    TaskContext* context = nullptr;

    struct FinalAwaiter {
        [[nodiscard]] bool await_ready() const noexcept { return false; }
        template <class Promise>
        std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> done) const noexcept {
            return done.promise().continuation;
        }
        void await_resume() const noexcept {}
    };

    [[nodiscard]] std::suspend_always initial_suspend() const noexcept { return {}; }
    [[nodiscard]] FinalAwaiter final_suspend() const noexcept { return {}; }
    // Nothing in the program throws across a task; what does is a fault that must not be hidden.
    [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }
};

template <class T>
struct TaskPromise : TaskPromiseBase {
    std::optional<T> value;
    Task<T> get_return_object() noexcept;
    template <class U>
    void return_value(U&& result) {
        value.emplace(std::forward<U>(result));
    }
    T take() { return std::move(*value); }
};

template <>
struct TaskPromise<void> : TaskPromiseBase {
    Task<void> get_return_object() noexcept;
    void return_void() const noexcept {}
    void take() const noexcept {}
};

}  // namespace detail

// A piece of work on the main thread that can wait. It does not start before it is awaited (or
// handed to a Scope or a Group), runs in its awaiter's context, and is owned: dropping one that was
// never awaited destroys its arguments, dropping one that waits destroys its frame.
template <class T>
class [[nodiscard]] Task {
public:
    using promise_type = detail::TaskPromise<T>;

    Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Task& operator=(Task&& other) noexcept {
        if (this != &other) {
            if (handle_) handle_.destroy();
            handle_ = std::exchange(other.handle_, nullptr);
        }
        return *this;
    }
    ~Task() {
        if (handle_) handle_.destroy();
    }

    struct Awaiter {
        std::coroutine_handle<promise_type> task;
        [[nodiscard]] bool await_ready() const noexcept { return false; }
        template <class Promise>
        std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> caller) noexcept {
            task.promise().continuation = caller;
            task.promise().context = caller.promise().context;
            return task;
        }
        T await_resume() { return task.promise().take(); }
    };
    Awaiter operator co_await() && noexcept { return Awaiter{handle_}; }

private:
    friend promise_type;
    explicit Task(std::coroutine_handle<promise_type> handle) noexcept : handle_(handle) {}
    std::coroutine_handle<promise_type> handle_;
};

namespace detail {
template <class T>
Task<T> TaskPromise<T>::get_return_object() noexcept {
    return Task<T>(std::coroutine_handle<TaskPromise<T>>::from_promise(*this));
}
inline Task<void> TaskPromise<void>::get_return_object() noexcept {
    return Task<void>(std::coroutine_handle<TaskPromise<void>>::from_promise(*this));
}
}  // namespace detail

// `co_await currentContext()`: the context of the running task, valid as long as the task.
struct CurrentContext {
    TaskContext* context = nullptr;
    [[nodiscard]] bool await_ready() const noexcept { return false; }
    template <class Promise>
    bool await_suspend(std::coroutine_handle<Promise> caller) noexcept {
        context = caller.promise().context;
        return false;
    }
    TaskContext& await_resume() const noexcept { return *context; }
};
[[nodiscard]] inline CurrentContext currentContext() {
    return {};
}

// `co_await isCancelled()`: whether the running task has been cancelled.
struct IsCancelled : CurrentContext {
    [[nodiscard]] bool await_resume() const noexcept { return context->token.stop_requested(); }
};
[[nodiscard]] inline IsCancelled isCancelled() {
    return {};
}

}  // namespace morvane
