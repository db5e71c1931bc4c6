#pragma once

#include <string>
#include <vector>

#include "platform/folder/removal_calls.h"

namespace morvane::folder {

// What lies in a folder, without "." and "..".
struct FolderNames {
    std::vector<std::string> folders;
    std::vector<std::string> others;
    int error = 0;  // the errno by which the listing ended early; what was read stands above
};

// Lists an open folder to its end before anything in it is touched, since a listing may leave
// entries out when others go meanwhile.
[[nodiscard]] FolderNames readNames(RemovalCalls& calls, int folder);

}  // namespace morvane::folder
