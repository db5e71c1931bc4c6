#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/failure.h"
#include "platform/folder/removal_calls.h"

namespace morvane::folder {

// The mount points that stand in the text of the system's mount table (proc(5), mountinfo), with
// its escapes (\040 for a blank) undone; nothing where a line cannot be read.
[[nodiscard]] std::optional<std::vector<std::string>> mountPointsIn(std::string_view table);

// Whether a volume is mounted at or below the folder `name` that lies in the open `folder`.
// Anything that could not be looked at is a failure, never "no"; its path is left empty.
[[nodiscard]] Result<bool> holdsMount(RemovalCalls& calls, int folder, const std::string& name);

}  // namespace morvane::folder
