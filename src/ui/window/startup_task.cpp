#include "ui/window/startup_task.h"

#include <chrono>

#include "tasks/sleep.h"

namespace morvane {

Task<void> startupTask(screens::Screens* screens, AppState* state,
                       std::function<void()> minutePassed) {
    state->startAutoScanLoop();
    screens->shell.appear();
    while (true) {
        co_await sleepFor(std::chrono::seconds(60));
        if (co_await isCancelled()) co_return;
        state->refreshFreeSpace();
        minutePassed();
    }
}

}  // namespace morvane
