#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/folder/disk_root.h"
#include "platform/folder/effect_log.h"
#include "platform/processes.h"

namespace morvane::folder {

// Runs the tools that lie on the disk; a tool of this machine is never started in the place of one
// that the disk lacks. Each one that was really started is an effect.
class DiskProcesses : public Processes {
public:
    // `disk` is the folder that holds the disk, absolute, as tools are told of it. The root and the
    // log outlive this object.
    DiskProcesses(const DiskRoot& root, std::filesystem::path disk, EffectLog& effects);

    // Nothing too where `token` says stop already, or everything was ended.
    [[nodiscard]] std::optional<ToolResult> run(const std::filesystem::path& executable,
                                                const std::vector<std::string>& arguments,
                                                std::optional<std::chrono::milliseconds> limit,
                                                const StopToken& token) const override;

    [[nodiscard]] unsigned userID() const override;

    // Ends the tools that still run, with little time for them to do so by themselves, and starts
    // none from then on. Does not wait: their runs return by and by. Any thread.
    void endAll();

private:
    const DiskRoot& root_;
    std::filesystem::path disk_;
    EffectLog& effects_;
    std::vector<std::string> environment_;
    StopSource closing_;
};

}  // namespace morvane::folder
