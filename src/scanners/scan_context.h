#pragma once

#include "model/instant.h"
#include "platform/platform.h"
#include "tasks/stop_token.h"

namespace morvane {

// What every scanner is handed: the system to look at, the moment that ages count from, and the
// cancellation of the task it runs in. A cancelled scanner returns what it has.
struct ScanContext {
    const Platform& platform;
    Instant now;
    StopToken token;
};

}  // namespace morvane
