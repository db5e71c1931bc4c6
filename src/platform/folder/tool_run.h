#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/folder/tool_start.h"
#include "platform/processes.h"

namespace morvane::folder {

// Reads a started tool to its end, and ends one that runs too long, writes too much or is not
// wanted any more. Used by one thread; only the wake-up descriptor is written by others.
class ToolRun {
public:
    using Clock = std::chrono::steady_clock;

    // What else than the tool itself may end the run.
    struct Reasons {
        std::optional<std::chrono::milliseconds> limit;
        const StopToken& unwanted;  // asks the tool to end, in the usual way
        const StopToken& closing;   // the program ends: little time is left to the tool
        int wakeUp = -1;            // an event counter, written to when a token has changed
    };

    ToolRun(StartedTool tool, const Reasons& reasons);
    ToolRun(const ToolRun&) = delete;
    ToolRun& operator=(const ToolRun&) = delete;

    // Waits until the tool has ended. To be called once.
    [[nodiscard]] ToolResult finish();

private:
    void look();         // at what has happened since
    void readOutput();   // what is there to read at the moment
    void endIfDue();     // asks the tool to end, or makes it
    void waitForNews();  // until something happens or falls due
    [[nodiscard]] bool isOver() const;
    [[nodiscard]] std::optional<Clock::time_point> nextDue() const;
    [[nodiscard]] int reap();

    StartedTool tool_;
    const Reasons& reasons_;
    std::optional<Clock::time_point> deadline_;
    std::optional<Clock::time_point> killAt_;     // set once the tool was asked to end
    std::optional<Clock::time_point> readUntil_;  // set once the tool has ended
    bool cutShort_ = false;
    bool killed_ = false;
    bool wroteTooMuch_ = false;
    std::string output_;
    std::vector<char> buffer_;
};

}  // namespace morvane::folder
