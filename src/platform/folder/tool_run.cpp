#include "platform/folder/tool_run.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <sys/wait.h>

namespace morvane::folder {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t mostOutput = std::size_t{64} << 20;
constexpr auto timeToEnd = 2s;
constexpr auto timeToEndWhenClosing = 200ms;
constexpr auto timeForChildren = 1s;
// Beyond it a limit is none, and its end would not fit the clock.
constexpr std::chrono::seconds longestLimit = std::chrono::hours(24 * 365);
// How often a tool is asked for, on systems that do not tell of its end.
constexpr auto askEvery = 20ms;

}  // namespace

ToolRun::ToolRun(StartedTool tool, const Reasons& reasons)
    : tool_(std::move(tool)), reasons_(reasons), buffer_(std::size_t{64} << 10) {
    if (reasons.limit && *reasons.limit < longestLimit) {
        deadline_ =
            Clock::now() + std::max<Clock::duration>(*reasons.limit, Clock::duration::zero());
    }
}

ToolResult ToolRun::finish() {
    while (true) {
        look();
        endIfDue();
        if (isOver()) break;
        waitForNews();
    }
    int status = reap();
    // A tool may answer the request to end with success; what was cut short is none.
    if (cutShort_ && status == 0) status = 128 + SIGTERM;
    return {status, std::move(output_)};
}

void ToolRun::look() {
    // Whoever wakes has changed its token first, and the tokens are asked after this.
    eventfd_t heard = 0;
    ::eventfd_read(reasons_.wakeUp, &heard);
    if (!readUntil_) {
        // The tool stays unreaped, so that its number and its group's belong to nobody else.
        siginfo_t info{};
        const int code =
            ::waitid(P_PID, static_cast<id_t>(tool_.process), &info, WEXITED | WNOHANG | WNOWAIT);
        const bool isGone = code != 0 && errno == ECHILD;
        if (isGone || (code == 0 && info.si_pid != 0)) readUntil_ = Clock::now() + timeForChildren;
    }
    // After the question, so that all that an ended tool wrote is read.
    if (tool_.output) readOutput();
}

void ToolRun::readOutput() {
    // A bounded piece each time: a tool that writes for ever is still looked at in between.
    for (int piece = 0; piece < 64; ++piece) {
        const ssize_t count = ::read(tool_.output.get(), buffer_.data(), buffer_.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return;
        if (count <= 0) {
            tool_.output.close();
            return;
        }
        const auto length = static_cast<std::size_t>(count);
        const std::size_t kept = std::min(length, mostOutput - output_.size());
        output_.append(buffer_.data(), kept);
        if (kept < length) wroteTooMuch_ = true;
    }
}

void ToolRun::endIfDue() {
    const auto now = Clock::now();
    const bool isClosing = reasons_.closing.stop_requested();
    const bool isUnwanted = isClosing || wroteTooMuch_ || reasons_.unwanted.stop_requested();
    const bool isLate = !readUntil_ && deadline_ && now >= *deadline_;
    if (!killAt_ && (isUnwanted || isLate)) {
        cutShort_ = true;
        killAt_ = now + timeToEnd;
        if (!readUntil_) ::kill(tool_.process, SIGTERM);
    }
    if (killAt_ && isClosing) killAt_ = std::min(*killAt_, now + timeToEndWhenClosing);
    if (killAt_ && !killed_ && now >= *killAt_) {
        killed_ = true;
        ::kill(-tool_.process, SIGKILL);
        // A tool can leave its group for another one.
        ::kill(tool_.process, SIGKILL);
    }
}

bool ToolRun::isOver() const {
    if (!readUntil_) return false;
    if (!tool_.output || Clock::now() >= *readUntil_) return true;
    // What is not wanted is not waited for either.
    return wroteTooMuch_ || reasons_.unwanted.stop_requested() || reasons_.closing.stop_requested();
}

std::optional<ToolRun::Clock::time_point> ToolRun::nextDue() const {
    std::optional<Clock::time_point> next;
    const auto consider = [&](const std::optional<Clock::time_point>& due) {
        if (due && (!next || *due < *next)) next = due;
    };
    if (readUntil_) {
        consider(readUntil_);
    } else if (!killAt_) {
        consider(deadline_);
    } else if (!killed_) {
        consider(killAt_);
    }
    if (!tool_.ending && !readUntil_) consider(Clock::now() + askEvery);
    return next;
}

void ToolRun::waitForNews() {
    // A descriptor of -1 is passed over.
    pollfd watched[3] = {{tool_.output.get(), POLLIN, 0},
                         {readUntil_ ? -1 : tool_.ending.get(), POLLIN, 0},
                         {reasons_.wakeUp, POLLIN, 0}};
    int wait = -1;
    if (const auto due = nextDue()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*due - Clock::now()).count();
        wait = static_cast<int>(std::clamp<std::int64_t>(left, 0, 3'600'000));
    }
    ::poll(watched, 3, wait);
}

int ToolRun::reap() {
    // No group may be left of a tool that was cut short. A child of one that ended by itself goes
    // on, as a server that it started would.
    if (cutShort_) ::kill(-tool_.process, SIGKILL);
    siginfo_t info{};
    int code = 0;
    do {
        code = ::waitid(P_PID, static_cast<id_t>(tool_.process), &info, WEXITED);
    } while (code != 0 && errno == EINTR);
    // Whoever started this program may have had it ignore its children: how the tool ended is then
    // not known, which is not a success.
    if (code != 0) return 255;
    return info.si_code == CLD_EXITED ? info.si_status : 128 + info.si_status;
}

}  // namespace morvane::folder
