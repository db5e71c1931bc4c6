#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tasks/stop_token.h"

namespace morvane {

struct ToolResult {
    int status = 0;  // exit status; 128 + signal for a tool that was ended by one
    std::string output;
};

// Running the system's own tools. May be called from any thread; waits for the tool.
class Processes {
public:
    Processes() = default;
    Processes(const Processes&) = delete;
    Processes& operator=(const Processes&) = delete;
    virtual ~Processes() = default;

    // Runs `executable` and gives its exit status with all it wrote to standard output, or nothing
    // when it could not be started. The tool leads a process group, has the null device as input
    // and error output, and finds the folder of `executable`, "/usr/local/bin" and
    // "/opt/homebrew/bin" ahead of the old PATH. At `limit`, in real time, or once it has written
    // 64 MiB, or when `token` says stop, it is asked to end, and two seconds later its whole group
    // is ended; its status is then not 0. A child that holds the pipe is waited for one second
    // beyond the tool's own end.
    [[nodiscard]] virtual std::optional<ToolResult> run(
        const std::filesystem::path& executable, const std::vector<std::string>& arguments,
        std::optional<std::chrono::milliseconds> limit, const StopToken& token) const = 0;

    // The user's id as launchd counts domains.
    [[nodiscard]] virtual unsigned userID() const = 0;
};

}  // namespace morvane
