#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/processes.h"

namespace morvane::fakes {

// Tools that answer as they were told to; one that was told nothing cannot be started. Any thread.
class FakeProcesses : public Processes {
public:
    using CommandLine = std::vector<std::string>;  // the executable first

    struct Run {
        CommandLine commandLine;
        std::optional<std::chrono::milliseconds> limit;

        bool operator==(const Run&) const = default;
    };

    void answer(CommandLine commandLine, ToolResult result) {
        const std::lock_guard lock(mutex_);
        answers_[std::move(commandLine)] = std::move(result);
    }
    // Runs in the thread that runs the tool, while it is at work: what it does, or a wait.
    void whileRunning(std::function<void(const Run&)> effect) {
        const std::lock_guard lock(mutex_);
        effect_ = std::move(effect);
    }
    // What was started, in order; what cannot be started is among it.
    [[nodiscard]] std::vector<Run> runs() const {
        const std::lock_guard lock(mutex_);
        return runs_;
    }

    [[nodiscard]] std::optional<ToolResult> run(const std::filesystem::path& executable,
                                                const std::vector<std::string>& arguments,
                                                std::optional<std::chrono::milliseconds> limit,
                                                const StopToken& token) const override;
    [[nodiscard]] unsigned userID() const override { return 501; }

private:
    mutable std::mutex mutex_;
    std::map<CommandLine, ToolResult> answers_;
    std::function<void(const Run&)> effect_;
    mutable std::vector<Run> runs_;
};

}  // namespace morvane::fakes
