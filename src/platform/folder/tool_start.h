#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/folder/descriptor.h"

namespace morvane::folder {

// What a tool is started with.
struct ToolStart {
    std::filesystem::path file;          // on this machine, absolute
    std::vector<std::string> arguments;  // the tool's own name first
    std::vector<std::string> environment;
    int workingFolder = -1;
};

// A tool that was started and not waited for yet. It leads a process group of its own number.
struct StartedTool {
    pid_t process = 0;
    Descriptor output;  // reads what the tool writes to standard output; never blocks
    Descriptor ending;  // becomes readable when the tool ends; none where the system has no such
};

// Starts a tool with the null device as input and error output and no other descriptor, with no
// signal blocked or ignored. Nothing where it could not be started, whatever the reason.
[[nodiscard]] std::optional<StartedTool> startTool(const ToolStart& start);

}  // namespace morvane::folder
