#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace morvane {

// Keeps one observer told; dropping it, or giving it another value, ends that at once. May outlive
// what is observed. Main thread.
class Subscription {
public:
    Subscription() = default;

private:
    friend class Changes;
    explicit Subscription(std::shared_ptr<const std::function<void()>> observer)
        : observer_(std::move(observer)) {}

    std::shared_ptr<const std::function<void()>> observer_;
};

// Those who want to be told that something has changed. They are told in the order in which they
// asked, and may come, go, and drop what is observed while they are being told. Main thread.
class Changes {
public:
    Changes() = default;
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;

    [[nodiscard]] Subscription observe(std::function<void()> changed);
    void tell();

private:
    std::vector<std::weak_ptr<const std::function<void()>>> observers_;
};

}  // namespace morvane
