#pragma once

#include <cstdint>
#include <string>

namespace morvane::bench {

// Two threads that do nothing but list every folder below `folder` and ask each file for its size:
// what the system itself costs. Gives the allocated bytes of the files.
std::int64_t bareLoop(const std::string& folder);

}  // namespace morvane::bench
