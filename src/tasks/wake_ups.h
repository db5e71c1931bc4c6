#pragma once

#include <atomic>

namespace morvane {

// Wake-ups for threads that wait, counted, so that one given before anybody waits is not lost.
// Giving one never waits for a thread that takes one: a condition variable may, until a thread it
// woke earlier has run, and that one may stand far back. Any thread.
class WakeUps {
public:
    void give() {
        count_.fetch_add(1);
        count_.notify_one();
    }

    // Waits until there is one and takes it away.
    void take() {
        int count = count_.load();
        while (true) {
            if (count == 0) {
                count_.wait(0);
                count = count_.load();
            } else if (count_.compare_exchange_weak(count, count - 1)) {
                return;
            }
        }
    }

private:
    std::atomic<int> count_{0};
};

}  // namespace morvane
