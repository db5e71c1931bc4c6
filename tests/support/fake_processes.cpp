#include "support/fake_processes.h"

#include <utility>

namespace morvane::fakes {

std::optional<ToolResult> FakeProcesses::run(const std::filesystem::path& executable,
                                             const std::vector<std::string>& arguments,
                                             std::optional<std::chrono::milliseconds> limit,
                                             const StopToken&) const {
    Run run{{executable.native()}, limit};
    run.commandLine.insert(run.commandLine.end(), arguments.begin(), arguments.end());
    std::function<void(const Run&)> effect;
    std::optional<ToolResult> result;
    {
        const std::lock_guard lock(mutex_);
        runs_.push_back(run);
        if (const auto found = answers_.find(run.commandLine); found != answers_.end()) {
            result = found->second;
            effect = effect_;
        }
    }
    if (effect) effect(run);
    return result;
}

}  // namespace morvane::fakes
