#include "platform/folder/newest_writer.h"

#include <utility>

namespace morvane::folder {

NewestWriter::NewestWriter(std::function<bool(const std::string&)> store)
    : store_(std::move(store)) {}

NewestWriter::~NewestWriter() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) thread_.join();
}

void NewestWriter::write(std::string bytes) {
    {
        const std::lock_guard lock(mutex_);
        waiting_ = std::move(bytes);
    }
    changed_.notify_all();
    if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
}

void NewestWriter::waitUntilIdle() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !waiting_ && !isStoring_; });
}

void NewestWriter::retryIfFailed() {
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !waiting_ && !isStoring_; });
        if (!failed_) return;
        waiting_ = std::exchange(failed_, std::nullopt);
    }
    changed_.notify_all();
}

void NewestWriter::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return waiting_ || isEnding_; });
        if (!waiting_) return;
        std::string bytes = std::move(*waiting_);
        waiting_.reset();
        failed_.reset();
        isStoring_ = true;
        lock.unlock();
        const bool isStored = store_(bytes);
        lock.lock();
        isStoring_ = false;
        if (!isStored) failed_ = std::move(bytes);
        changed_.notify_all();
    }
}

}  // namespace morvane::folder
