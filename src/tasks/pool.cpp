#include "tasks/pool.h"

#include <algorithm>
#include <utility>

#include "tasks/background_thread.h"

namespace morvane {

namespace {
thread_local Pool* poolOfThread = nullptr;
}

Pool::Pool(unsigned width)
    : width_(width != 0 ? width : std::max(2U, std::thread::hardware_concurrency())) {}

Pool::~Pool() {
    std::unique_lock lock(mutex_);
    closing_ = true;
    // A function may start a further thread while the first ones are being joined.
    while (!threads_.empty()) {
        std::vector<std::thread> threads;
        threads.swap(threads_);
        lock.unlock();
        for (std::thread& thread : threads) {
            wakeUps_.give();
            thread.join();
        }
        lock.lock();
    }
}

void Pool::post(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(work));
        startThreadIfNeeded();
    }
    wakeUps_.give();
}

void Pool::startThreadIfNeeded() {
    if (queue_.empty() || busy_ >= width_ || waiting_ >= queue_.size()) return;
    ++waiting_;
    threads_.emplace_back([this] { run(); });
}

void Pool::run() {
    poolOfThread = this;
    standBackForMainThread();
    std::unique_lock lock(mutex_);
    while (true) {
        if (!queue_.empty() && busy_ < width_) {
            std::function<void()> work = std::move(queue_.front());
            queue_.pop_front();
            --waiting_;
            ++busy_;
            lock.unlock();
            work();
            work = nullptr;
            lock.lock();
            // The place that is free now is this thread's own, so that it looks again by itself.
            --busy_;
            ++waiting_;
        } else if (closing_ && queue_.empty()) {
            break;
        } else {
            lock.unlock();
            wakeUps_.take();
            lock.lock();
        }
    }
    --waiting_;
    // The wake-up that ended this thread may have been meant for another.
    wakeUps_.give();
}

Pool::Blocking::Blocking() : pool_(poolOfThread) {
    if (pool_ == nullptr) return;
    {
        const std::lock_guard lock(pool_->mutex_);
        --pool_->busy_;
        pool_->startThreadIfNeeded();
    }
    pool_->wakeUps_.give();
}

Pool::Blocking::~Blocking() {
    if (pool_ == nullptr) return;
    // The function goes on at once, even where that makes one more than the width for a while.
    const std::lock_guard lock(pool_->mutex_);
    ++pool_->busy_;
}

}  // namespace morvane
