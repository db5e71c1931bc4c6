#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "core/store.h"

namespace morvane {

// One field of the store. Reading gives the value. Assigning writes, stores where the field is
// kept between runs (at every assignment, equal or not), and reports the field when the value
// differs. Main thread only.
template <class T>
class Observable {
public:
    using Value = T;
    using Keep = std::function<void(const T&)>;

    Observable(Store& store, std::string_view name, T initial, Keep keep = {})
        : store_(store), name_(name), value_(std::move(initial)), keep_(std::move(keep)) {}
    Observable(const Observable&) = delete;

    [[nodiscard]] const T& get() const {
        store_.assertMainThread();
        return value_;
    }
    [[nodiscard]] const T& operator*() const { return get(); }
    [[nodiscard]] const T* operator->() const { return &get(); }
    [[nodiscard]] std::string_view name() const { return name_; }

    Observable& operator=(T value) {
        store_.assertMainThread();
        const bool differs = !(value_ == value);
        value_ = std::move(value);
        written(differs);
        return *this;
    }

    // The same, but reports the field even where nothing differs: what is drawn from it also
    // depends on something outside the store that has changed.
    void setAndRedraw(T value) {
        store_.assertMainThread();
        value_ = std::move(value);
        written(true);
    }

    // Writes only a value that differs.
    void setIfDifferent(T value) {
        if (!(get() == value)) *this = std::move(value);
    }

    // Writes what `change` makes of the value in place.
    template <class Change>
    void update(Change change) {
        T value = get();
        change(value);
        *this = std::move(value);
    }

private:
    void written(bool differs) {
        if (keep_ && !store_.isClosed()) keep_(value_);
        if (differs) store_.fieldChanged(name_);
    }

    Store& store_;
    std::string_view name_;
    T value_;
    Keep keep_;
};

}  // namespace morvane
