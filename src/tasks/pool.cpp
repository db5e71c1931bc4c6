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
        wake_.notify_all();
        for (std::thread& thread : threads) thread.join();
        lock.lock();
    }
}

void Pool::post(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(work));
        startThreadIfNeeded();
    }
    wake_.notify_one();
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
        wake_.wait(lock, [&] {
            return (!queue_.empty() && busy_ < width_) || (closing_ && queue_.empty());
        });
        if (queue_.empty()) break;
        std::function<void()> work = std::move(queue_.front());
        queue_.pop_front();
        --waiting_;
        ++busy_;
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
        --busy_;
        ++waiting_;
        if (!queue_.empty()) wake_.notify_one();
    }
    --waiting_;
    wake_.notify_all();
}

Pool::Blocking::Blocking() : pool_(poolOfThread) {
    if (pool_ == nullptr) return;
    const std::lock_guard lock(pool_->mutex_);
    --pool_->busy_;
    pool_->startThreadIfNeeded();
    pool_->wake_.notify_one();
}

Pool::Blocking::~Blocking() {
    if (pool_ == nullptr) return;
    // The function goes on at once, even where that makes one more than the width for a while.
    const std::lock_guard lock(pool_->mutex_);
    ++pool_->busy_;
}

}  // namespace morvane
