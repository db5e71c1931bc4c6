#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace morvane::bench {

// What one run of a program took, as the system counted it.
struct Run {
    bool good = false;
    double wall = 0;    // seconds, from before the start to after the end
    double user = 0;    // seconds of all threads
    double system = 0;  // the same, inside system calls
    std::string said;   // its standard output
};

// Runs a program found along PATH to its end.
[[nodiscard]] Run runProgram(const std::vector<std::string>& words);

// Most memory that this process has held so far, in KiB.
[[nodiscard]] std::int64_t peakMemory();

}  // namespace morvane::bench
