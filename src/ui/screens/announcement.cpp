#include "ui/screens/announcement.h"

#include "ui/overview/phase_cards.h"

namespace morvane::screens {

Announcer::Announcer(const AppState& state)
    : state_(state),
      phase_(*state.scanPhase),
      sweepProblem_(*state.sweepProblem),
      restoreProblem_(*state.restoreProblem) {}

const std::string& Announcer::update() {
    const ScanPhase phase = *state_.scanPhase;
    const bool hasEnded =
        phase == ScanPhase::done || phase == ScanPhase::success || phase == ScanPhase::empty;
    if (phase != phase_ && hasEnded) {
        sentence_ = std::visit([](const auto& card) { return card.title; }, phaseCard(state_));
    }
    if (*state_.sweepProblem != sweepProblem_ && state_.sweepProblem->has_value()) {
        sentence_ = **state_.sweepProblem;
    }
    for (const auto& [entry, problem] : *state_.restoreProblem) {
        const auto former = restoreProblem_.find(entry);
        if (former == restoreProblem_.end() || former->second != problem) sentence_ = problem;
    }
    phase_ = phase;
    sweepProblem_ = *state_.sweepProblem;
    restoreProblem_ = *state_.restoreProblem;
    return sentence_;
}

}  // namespace morvane::screens
