#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "tasks/executor.h"

namespace morvane {

// The fields that changed in one turn of the main loop; the value says whether a write of the turn
// was an animated one.
using ChangedFields = std::map<std::string_view, bool>;

// Collects what changes and tells the observers once a turn. Main thread only: there is no lock,
// and a debug build asserts the thread at each access.
class Store {
public:
    explicit Store(Executor& executor);
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // Calls `observer` after each turn in which fields changed, for as long as the subscription
    // lives. Writes made by an observer are told at the next turn.
    using Observer = std::function<void(const ChangedFields&)>;
    class Subscription {
    public:
        Subscription() = default;

    private:
        friend class Store;
        explicit Subscription(std::shared_ptr<Observer> observer)
            : observer_(std::move(observer)) {}
        std::shared_ptr<Observer> observer_;
    };
    [[nodiscard]] Subscription observe(Observer observer);

    // Observers hear nothing more.
    void dropObservers() { state_->observers.clear(); }
    // The same, and persisted fields are not stored any more.
    void close();
    [[nodiscard]] bool isClosed() const { return state_->closed; }

    // For fields alone.
    void fieldChanged(std::string_view name);
    void assertMainThread() const;

private:
    friend class AnimatedChange;
    struct State {
        ChangedFields changed;
        std::vector<std::weak_ptr<Observer>> observers;
        bool posted = false;
        bool closed = false;
        int animations = 0;
    };
    static void tell(State& state);

    Executor& executor_;
    std::shared_ptr<State> state_;
};

// Marks the writes made while it lives as parts of an animated state change: a spring of response
// 0.5 seconds and damping fraction 1. What holds everywhere is the order of the writes.
class AnimatedChange {
public:
    explicit AnimatedChange(Store& store) : state_(store.state_) { ++state_->animations; }
    ~AnimatedChange() { --state_->animations; }
    AnimatedChange(const AnimatedChange&) = delete;
    AnimatedChange& operator=(const AnimatedChange&) = delete;

private:
    std::shared_ptr<Store::State> state_;
};

}  // namespace morvane
