#include "platform/folder/walk_crew.h"

#include <algorithm>
#include <system_error>

namespace morvane::folder {

int WalkThreads::forThisMachine() {
    return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 8U)) - 1;
}

bool WalkThreads::tryTake() {
    int free = free_.load(std::memory_order_relaxed);
    while (free > 0) {
        if (free_.compare_exchange_weak(free, free - 1, std::memory_order_relaxed)) return true;
    }
    return false;
}

WalkCrew::~WalkCrew() {
    for (std::thread& helper : hired_) helper.join();
    threads_.giveBack(static_cast<int>(hired_.size()));
}

void WalkCrew::hire() {
    if (!threads_.areFree() || !threads_.tryTake()) return;
    const std::lock_guard lock(mutex_);
    try {
        hired_.emplace_back(help_);
        helpers_.fetch_add(1, std::memory_order_relaxed);
    } catch (const std::system_error&) {
        threads_.giveBack(1);  // the system has no thread to spare; the walk goes on with fewer
    }
}

void WalkCrew::offer(WalkFrame folder) {
    {
        const std::lock_guard lock(mutex_);
        folders_.push_back(std::move(folder));
        waiting_.store(static_cast<int>(folders_.size()), std::memory_order_relaxed);
    }
    changed_.notify_one();
}

void WalkCrew::work(const std::function<void(WalkFrame)>& walk) {
    while (std::optional<WalkFrame> folder = take()) {
        walk(std::move(*folder));
        done();
    }
}

std::optional<WalkFrame> WalkCrew::take() {
    std::unique_lock lock(mutex_);
    // Only a thread that works brings new folders, so none waiting and none working is the end.
    changed_.wait(lock, [this] { return !folders_.empty() || working_ == 0; });
    if (folders_.empty()) return std::nullopt;
    WalkFrame folder = std::move(folders_.front());
    folders_.pop_front();
    waiting_.store(static_cast<int>(folders_.size()), std::memory_order_relaxed);
    ++working_;
    return folder;
}

void WalkCrew::done() {
    const std::lock_guard lock(mutex_);
    --working_;
    if (working_ == 0 && folders_.empty()) changed_.notify_all();
}

}  // namespace morvane::folder
