#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace morvane::folder {

// Hands bytes to a thread of its own that stores them, one after another. While one is being
// stored, only the newest of those handed over waits: every one of them is the whole content, so an
// older one has nothing to add. From one thread.
class NewestWriter {
public:
    // `store` runs on the writer's thread, never twice at a time, and tells whether it succeeded.
    explicit NewestWriter(std::function<bool(const std::string&)> store);
    NewestWriter(const NewestWriter&) = delete;
    NewestWriter& operator=(const NewestWriter&) = delete;
    // What was handed over is stored first.
    ~NewestWriter();

    // Returns at once. The thread starts with the first call.
    void write(std::string bytes);
    // Waits until nothing is left to store.
    void waitUntilIdle();
    // Waits likewise, and where the newest could not be stored hands it over once more.
    void retryIfFailed();

private:
    void run();

    std::function<bool(const std::string&)> store_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<std::string> waiting_;
    std::optional<std::string> failed_;  // the last one, where it could not be stored
    bool isStoring_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

}  // namespace morvane::folder
