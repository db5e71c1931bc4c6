#pragma once

#include <functional>

#include "tasks/task.h"
#include "ui/screens/screens.h"

namespace morvane {

// What the program does from its start to its end: it begins the automatic scans, measures the
// disk, and looks at the volume's figures once a minute, with a word to `minutePassed` each time.
[[nodiscard]] Task<void> startupTask(screens::Screens* screens, AppState* state,
                                     std::function<void()> minutePassed);

}  // namespace morvane
