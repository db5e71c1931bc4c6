#pragma once

#include <functional>
#include <string>

namespace morvane::folder {

// Runs `body` in a process of its own, in which mounting is allowed and reaches nobody else, and
// hands its failed expectations over to the running test. Where the system does not allow that, the
// test's output says so and false comes back: the same rules are then tested by other means alone.
// What was opened before does not see what the body mounts, so the remover is to be made in there.
bool whereMountingIsAllowed(const std::function<void()>& body);

// Mounts an empty file system of `bytes` in memory, or the folder `folder`, at `point`; for the
// body above. A failure is a failed expectation.
void mountMemory(const std::string& point, const std::string& bytes = "1m");
void mountFolder(const std::string& folder, const std::string& point);

}  // namespace morvane::folder
