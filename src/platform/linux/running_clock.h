#pragma once

#include <chrono>
#include <optional>

#include "model/instant.h"

namespace morvane::linuxdesktop {

// The clock of a program that runs by itself: the machine's, or one that starts at a given moment
// and goes on from there as fast as time passes, untouched by changes of the machine's date. Any
// thread.
class RunningClock {
public:
    explicit RunningClock(std::optional<Instant> start = std::nullopt) : start_(start) {}

    [[nodiscard]] Instant now() const {
        if (!start_) return Instant(std::chrono::system_clock::now());
        return *start_ + (std::chrono::steady_clock::now() - begun_);
    }

private:
    std::optional<Instant> start_;
    std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
};

}  // namespace morvane::linuxdesktop
