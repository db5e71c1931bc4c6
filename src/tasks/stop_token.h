#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace morvane {

// Cooperative cancellation with the standard library's names, which not all the standard libraries
// we build with have. Every function may be called from any thread.
namespace detail {

struct StopState {
    std::mutex mutex;
    std::condition_variable left;
    std::list<std::function<void()>*> callbacks;
    std::function<void()>* running = nullptr;
    std::thread::id runner;
    std::atomic<bool> requested{false};

    bool request();
    // False when the stop has been requested already; the callback is then not registered.
    bool add(std::function<void()>* callback);
    // Returns once the callback is not running on another thread and will not run any more.
    void remove(std::function<void()>* callback);
};

}  // namespace detail

// Says whether a stop was asked for. The empty token never is.
class StopToken {
public:
    StopToken() = default;
    [[nodiscard]] bool stop_requested() const {
        return state_ != nullptr && state_->requested.load(std::memory_order_acquire);
    }
    [[nodiscard]] bool stop_possible() const { return state_ != nullptr; }

private:
    friend class StopSource;
    friend class StopCallback;
    explicit StopToken(std::shared_ptr<detail::StopState> state) : state_(std::move(state)) {}
    std::shared_ptr<detail::StopState> state_;
};

class StopSource {
public:
    StopSource() : state_(std::make_shared<detail::StopState>()) {}
    // True for the request that made the change. Runs the callbacks, here and now.
    bool request_stop() const { return state_->request(); }
    [[nodiscard]] bool stop_requested() const { return get_token().stop_requested(); }
    [[nodiscard]] StopToken get_token() const { return StopToken(state_); }

private:
    std::shared_ptr<detail::StopState> state_;
};

// Runs `callback` once when a stop is requested while this object lives: in the requesting thread,
// or here at once when it was requested before. The destructor waits for a run on another thread.
class StopCallback {
public:
    StopCallback(const StopToken& token, std::function<void()> callback);
    ~StopCallback();
    StopCallback(const StopCallback&) = delete;
    StopCallback& operator=(const StopCallback&) = delete;

private:
    std::function<void()> callback_;
    std::shared_ptr<detail::StopState> state_;
};

}  // namespace morvane
