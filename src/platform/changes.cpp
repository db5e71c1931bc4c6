#include "platform/changes.h"

namespace morvane {

Subscription Changes::observe(std::function<void()> changed) {
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    auto observer = std::make_shared<const std::function<void()>>(std::move(changed));
    observers_.push_back(observer);
    return Subscription(std::move(observer));
}

void Changes::tell() {
    // A copy: one of them may drop this object.
    const auto observers = observers_;
    for (const auto& observer : observers) {
        if (const auto changed = observer.lock()) (*changed)();
    }
}

}  // namespace morvane
