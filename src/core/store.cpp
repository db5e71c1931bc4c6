#include "core/store.h"

#include <cassert>
#include <utility>

namespace morvane {

Store::Store(Executor& executor) : executor_(executor), state_(std::make_shared<State>()) {}

Store::Subscription Store::observe(Observer observer) {
    auto shared = std::make_shared<Observer>(std::move(observer));
    state_->observers.push_back(shared);
    return Subscription(std::move(shared));
}

void Store::close() {
    state_->closed = true;
    dropObservers();
}

void Store::fieldChanged(std::string_view name) {
    State& state = *state_;
    if (state.closed) return;
    state.changed[name] = state.changed[name] || state.animations > 0;
    if (std::exchange(state.posted, true)) return;
    executor_.post([shared = state_] { tell(*shared); });
}

void Store::tell(State& state) {
    state.posted = false;
    const ChangedFields changed = std::exchange(state.changed, {});
    const auto observers = state.observers;
    for (const std::weak_ptr<Observer>& weak : observers) {
        if (const auto observer = weak.lock(); observer != nullptr && !state.closed) {
            (*observer)(changed);
        }
    }
    std::erase_if(state.observers, [](const auto& weak) { return weak.expired(); });
}

void Store::assertMainThread() const {
    assert(executor_.isMainThread());
}

}  // namespace morvane
