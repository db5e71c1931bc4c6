#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "platform/folder/walk_frame.h"

namespace morvane::folder {

// The extra threads that all walks of one file system share. Any thread.
class WalkThreads {
public:
    explicit WalkThreads(int extra) : free_(extra) {}
    // One for each core but the first, at most seven.
    [[nodiscard]] static int forThisMachine();

    [[nodiscard]] bool areFree() const { return free_.load(std::memory_order_relaxed) > 0; }
    [[nodiscard]] bool tryTake();
    void giveBack(int count) { free_.fetch_add(count, std::memory_order_relaxed); }

private:
    std::atomic<int> free_;
};

// The threads of one walk and the opened folders that wait for one of them. A walk starts on the
// calling thread alone; helpers are hired when a thread that walks finds that it pays. Any thread.
class WalkCrew {
public:
    // `help` is what a helper does: it calls work() with a lane of its own.
    WalkCrew(WalkThreads& threads, std::function<void()> help)
        : threads_(threads), help_(std::move(help)) {}
    WalkCrew(const WalkCrew&) = delete;
    WalkCrew& operator=(const WalkCrew&) = delete;
    // Waits for the helpers.
    ~WalkCrew();

    // Whether a folder should be handed over now, so that no helper has to wait for one.
    [[nodiscard]] bool wantsFolders() const {
        const int helpers = helpers_.load(std::memory_order_relaxed);
        return helpers > 0 && waiting_.load(std::memory_order_relaxed) < 2 * helpers + 2;
    }
    // A thread more, where one is free.
    void hire();
    void offer(WalkFrame folder);

    // Runs `walk` on every folder that waits, until all threads have ended theirs.
    void work(const std::function<void(WalkFrame)>& walk);

private:
    std::optional<WalkFrame> take();
    void done();

    WalkThreads& threads_;
    std::function<void()> help_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<WalkFrame> folders_;
    int working_ = 0;
    std::vector<std::thread> hired_;
    std::atomic<int> helpers_{0};
    std::atomic<int> waiting_{0};  // length of folders_, to be looked at without the lock
};

}  // namespace morvane::folder
