#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "tasks/event_loop.h"

namespace morvane::driver {

// Reads lines from a descriptor on a thread of its own, one at a time, so that the main loop goes
// on while nothing comes.
class LineReader {
public:
    // A longer line is passed over up to its end and told as such.
    static constexpr std::size_t longestLine = std::size_t{64} << 20;

    struct Line {
        std::string text;
        bool isTooLong = false;
    };

    LineReader(int descriptor, EventLoop& loop);
    // Ends a read that is under way.
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    // The next line without its line feed, nothing at the end of input; the loop runs meanwhile.
    [[nodiscard]] std::optional<Line> next();

private:
    void run();
    bool fill();  // false at the end of input
    void hand(Line line);

    int descriptor_;
    EventLoop& loop_;
    int closing_;  // an eventfd
    std::string buffer_;

    std::mutex mutex_;
    std::condition_variable taken_;
    std::optional<Line> line_;
    bool wantsLine_ = false;
    bool isClosed_ = false;
    bool isAtEnd_ = false;
    std::thread thread_;
};

}  // namespace morvane::driver
