#pragma once

#include <string>

#include "core/app_state.h"

namespace morvane::screens {

// What a screen reader is told of what has just happened: the card's title when a scan or a sweep
// has ended, and what went wrong, word for word.
class Announcer {
public:
    explicit Announcer(const AppState& state);

    // To be called after changes. The sentence that is to be said now; empty before the first one.
    const std::string& update();

private:
    const AppState& state_;
    ScanPhase phase_;
    std::optional<std::string> sweepProblem_;
    std::map<std::string, std::string> restoreProblem_;
    std::string sentence_;
};

}  // namespace morvane::screens
