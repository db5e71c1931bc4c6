#include "driver/line_reader.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace morvane::driver {

LineReader::LineReader(int descriptor, EventLoop& loop)
    : descriptor_(descriptor),
      loop_(loop),
      closing_(::eventfd(0, EFD_CLOEXEC)),
      thread_([this] { run(); }) {}

LineReader::~LineReader() {
    {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
    }
    taken_.notify_all();
    const std::uint64_t one = 1;
    static_cast<void>(!::write(closing_, &one, sizeof one));
    thread_.join();
    ::close(closing_);
}

std::optional<LineReader::Line> LineReader::next() {
    {
        const std::lock_guard lock(mutex_);
        wantsLine_ = true;
    }
    taken_.notify_all();
    while (true) {
        loop_.runReady();
        {
            const std::lock_guard lock(mutex_);
            if (line_) return std::exchange(line_, std::nullopt);
            if (isAtEnd_) return std::nullopt;
        }
        loop_.waitForWork();
    }
}

void LineReader::hand(Line line) {
    std::unique_lock lock(mutex_);
    taken_.wait(lock, [&] { return isClosed_ || (wantsLine_ && !line_); });
    if (isClosed_) return;
    wantsLine_ = false;
    line_ = std::move(line);
    loop_.wake();
}

bool LineReader::fill() {
    std::array<pollfd, 2> ready{{{descriptor_, POLLIN, 0}, {closing_, POLLIN, 0}}};
    while (::poll(ready.data(), ready.size(), -1) < 0) {
        if (errno != EINTR) return false;
    }
    if (ready[1].revents != 0) return false;
    std::array<char, 65536> bytes;
    const ssize_t count = ::read(descriptor_, bytes.data(), bytes.size());
    if (count < 0) return errno == EINTR || errno == EAGAIN;
    buffer_.append(bytes.data(), static_cast<std::size_t>(count));
    return count > 0;
}

void LineReader::run() {
    bool skipping = false;
    std::size_t searched = 0;
    bool more = true;
    while (more) {
        more = fill();
        std::size_t start = 0;
        for (std::size_t end = buffer_.find('\n', searched); end != std::string::npos;
             end = buffer_.find('\n', start)) {
            hand({skipping ? std::string() : buffer_.substr(start, end - start), skipping});
            skipping = false;
            start = end + 1;
        }
        buffer_.erase(0, start);
        if (buffer_.size() > longestLine) {
            buffer_.clear();
            skipping = true;
        }
        searched = buffer_.size();
    }
    // A last line needs no line feed.
    if (skipping || !buffer_.empty()) hand({skipping ? std::string() : buffer_, skipping});
    {
        std::unique_lock lock(mutex_);
        isAtEnd_ = true;
    }
    loop_.wake();
}

}  // namespace morvane::driver
