#pragma once

#include <string>
#include <vector>

#include "tasks/event_loop.h"
#include "tasks/pool.h"
#include "tasks/scope.h"

namespace morvane {

// A main loop with a virtual clock, a pool, and a diary that tasks write in. The scope goes first.
struct Workshop {
    EventLoop loop{Instant{}};
    Pool pool{2};
    Scope scope{Runtime{loop, pool}};
    std::vector<std::string> diary;

    void note(const std::string& what) { diary.push_back(what); }
    [[nodiscard]] Instant at(std::chrono::nanoseconds time) const { return Instant(time); }
    // Runs until every task of the scope has ended.
    [[nodiscard]] bool finish() {
        return loop.runUntil([&] { return scope.isEmpty(); });
    }
};

}  // namespace morvane
