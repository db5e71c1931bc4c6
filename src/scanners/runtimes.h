#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/cleanup.h"

namespace morvane::CleanupScanner {

inline constexpr const char* simulatorTool = "/usr/bin/xcrun";

// One simulator runtime as the simulator tool reports it.
struct Runtime {
    std::string id;
    std::string platform;  // a display word
    std::string version;   // may be empty
    std::int64_t bytes = 0;

    bool operator==(const Runtime&) const = default;
};

// The display word of a simulator platform's identifier; "Simulator" for one that is not known.
[[nodiscard]] std::string_view platformName(std::string_view identifier);

// The runtimes that may go, from what "simctl runtime list -j" wrote; none when that is anything
// but an object of objects.
[[nodiscard]] std::vector<Runtime> runtimesIn(std::string_view output);

// One item a runtime, in order. The newest of each platform asks for review, an older one is safe.
[[nodiscard]] std::vector<CleanupItem> runtimeItems(const std::vector<Runtime>& runtimes);

}  // namespace morvane::CleanupScanner
