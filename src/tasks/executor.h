#pragma once

#include <cstdint>
#include <functional>

#include "model/instant.h"

namespace morvane {

// The main thread's loop and its clock. The window's event loop, the loop of a program without a
// window and the hand-cranked one of the tests are executors. Nothing in the logic reads another
// clock or waits by other means.
class Executor {
public:
    using Timer = std::uint64_t;

    Executor() = default;
    Executor(const Executor&) = delete;
    Executor& operator=(const Executor&) = delete;
    virtual ~Executor() = default;

    // Runs `work` on the main thread at a later turn; what was posted first runs first. Any thread.
    virtual void post(std::function<void()> work) = 0;

    // Runs `work` on the main thread once the clock has reached `due`. Main thread.
    virtual Timer at(Instant due, std::function<void()> work) = 0;
    // The timer's work does not run any more; a timer that has run is passed over. Main thread.
    virtual void cancel(Timer timer) = 0;

    // Any thread.
    [[nodiscard]] virtual Instant now() const = 0;
    [[nodiscard]] virtual bool isMainThread() const = 0;

    // A function of the pool is on its way, or has posted its end. While some are under way, a
    // virtual clock stands still. `begun` comes from the main thread, `ended` from any.
    virtual void backgroundWorkBegan() {}
    virtual void backgroundWorkEnded() {}
};

}  // namespace morvane
