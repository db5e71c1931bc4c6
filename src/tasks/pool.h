#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "tasks/wake_ups.h"

namespace morvane {

// Runs functions off the main thread, at most `width` at a time; one that blocks on something
// outside (a tool) says so and does not count. All functions may be called from any thread.
class Pool {
public:
    // `width` 0: as many as the machine has cores, and at least two.
    explicit Pool(unsigned width = 0);
    // Waits for every function that was posted.
    ~Pool();
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

    void post(std::function<void()> work);

    [[nodiscard]] unsigned width() const { return width_; }

    // While it lives, the function of the pool that made it counts as waiting, and another one may
    // run in its place. Made on a thread of no pool it does nothing.
    class Blocking {
    public:
        Blocking();
        ~Blocking();
        Blocking(const Blocking&) = delete;
        Blocking& operator=(const Blocking&) = delete;

    private:
        Pool* pool_;
    };

private:
    void run();
    void startThreadIfNeeded();  // with the lock held

    unsigned width_;
    std::mutex mutex_;
    WakeUps wakeUps_;  // one for each reason to look at the queue, or more
    std::deque<std::function<void()>> queue_;
    std::vector<std::thread> threads_;
    unsigned busy_ = 0;     // functions that run and do not block
    unsigned waiting_ = 0;  // threads without work
    bool closing_ = false;
};

}  // namespace morvane
