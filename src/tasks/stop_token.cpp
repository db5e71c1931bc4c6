#include "tasks/stop_token.h"

#include <algorithm>

namespace morvane {

namespace detail {

bool StopState::request() {
    std::unique_lock lock(mutex);
    if (requested.exchange(true, std::memory_order_acq_rel)) return false;
    runner = std::this_thread::get_id();
    while (!callbacks.empty()) {
        running = callbacks.front();
        callbacks.pop_front();
        // A callback may destroy its own registration, so it is called through a copy.
        const std::function<void()> call = *running;
        lock.unlock();
        call();
        lock.lock();
        running = nullptr;
        left.notify_all();
    }
    runner = {};
    return true;
}

bool StopState::add(std::function<void()>* callback) {
    const std::lock_guard lock(mutex);
    if (requested.load(std::memory_order_acquire)) return false;
    callbacks.push_back(callback);
    return true;
}

void StopState::remove(std::function<void()>* callback) {
    std::unique_lock lock(mutex);
    const auto found = std::find(callbacks.begin(), callbacks.end(), callback);
    if (found != callbacks.end()) {
        callbacks.erase(found);
        return;
    }
    if (runner == std::this_thread::get_id()) return;
    left.wait(lock, [&] { return running != callback; });
}

}  // namespace detail

StopCallback::StopCallback(const StopToken& token, std::function<void()> callback)
    : callback_(std::move(callback)), state_(token.state_) {
    if (state_ == nullptr) return;
    if (!state_->add(&callback_)) {
        state_ = nullptr;
        callback_();
    }
}

StopCallback::~StopCallback() {
    if (state_ != nullptr) state_->remove(&callback_);
}

}  // namespace morvane
