#include "removal/sweep.h"

#include <chrono>
#include <set>
#include <utility>

#include "core/app_state.h"
#include "removal/discard.h"
#include "tasks/background.h"

namespace morvane {

namespace {

constexpr std::chrono::seconds commandLimit{600};

void takeOut(Observable<std::set<std::string>>& selection, const std::set<std::string>& removed) {
    selection.update([&](std::set<std::string>& ids) {
        for (const std::string& id : removed) ids.erase(id);
    });
}

}  // namespace

void AppState::sweep(std::vector<CleanupItem> items, std::optional<std::string> label) {
    if (items.empty() || *isSweeping) return;
    isSweeping = true;
    sweepProblem = std::nullopt;
    scope_.start(runSweep(shared_from_this(), std::move(items), std::move(label)));
}

Task<void> AppState::runSweep(Self self, std::vector<CleanupItem> items,
                              std::optional<std::string> label) {
    const SweepOutcome outcome = co_await performSweep(self, std::move(items), std::move(label));
    self->isSweeping = false;
    if (auto problem = sweepProblemWords(outcome)) self->sweepProblem = std::move(problem);
    if (outcome.freedBytes < 1) co_return;
    self->freedMB = static_cast<double>(outcome.freedBytes) / 1e6;
    self->selection = SidebarItem::overview;
    const AnimatedChange animated(self->store_);
    self->scanPhase = ScanPhase::success;
}

void AppState::sweepFromMenuBar() {
    std::vector<CleanupItem> items = sweepItems();
    std::erase_if(items, needsReview);
    if (items.empty() || *isSweeping) return;
    menuBarSweptMB = 0;
    menuBarPhase = MenuBarPhase::sweeping;
    isSweeping = true;
    scope_.start(runMenuBarSweep(shared_from_this(), std::move(items)));
}

// The panel shows no problem and moves nobody to another screen, so this is not the guarded sweep.
Task<void> AppState::runMenuBarSweep(Self self, std::vector<CleanupItem> items) {
    const SweepOutcome outcome = co_await performSweep(self, std::move(items), std::nullopt);
    self->isSweeping = false;
    self->menuBarSweptMB = static_cast<double>(outcome.freedBytes) / 1e6;
    self->menuBarTrashed = outcome.trashed;
    self->menuBarPhase = outcome.freedBytes >= 1 ? MenuBarPhase::done : MenuBarPhase::idle;
}

// A removal is never cancelled half-way: nothing here asks for it.
Task<SweepOutcome> AppState::performSweep(Self self, std::vector<CleanupItem> items,
                                          std::optional<std::string> label) {
    SweepOutcome outcome;
    const std::vector<RemovalTarget> targets = removalTargets(items);
    if (!targets.empty()) {
        const Disposal disposal = *self->alwaysUseTrash ? Disposal::trash : Disposal::outright;
        Remover& remover = self->needs_.remover;
        // The report's error is left aside: what is still there afterwards is the failure.
        RemovalReport report =
            co_await background([&remover, disposal, &targets](const StopToken&) {
                return discard(remover, disposal, targets);
            });
        outcome.trashed = std::move(report.trashed);
    }
    for (const CleanupItem& item : items) {
        if (trashParts(item) != nullptr) {
            judgeTrashItem(item, self->platform().files, outcome);
            continue;
        }
        const CommandAction& command = std::get<CommandAction>(item.action);
        const Processes& processes = self->platform().processes;
        const std::optional<int> status =
            co_await background([&processes, &command](const StopToken&) -> std::optional<int> {
                const auto result =
                    processes.run(command.executable, command.arguments, commandLimit, StopToken());
                if (!result) return std::nullopt;
                return result->status;
            });
        judgeCommandItem(item, status, outcome);
    }
    self->applyOutcome(outcome);
    if (outcome.freedBytes >= 1) {
        self->lastSweptAt = self->now();
        self->recordSweep(sweepSummary(outcome, label), outcome.trashed);
    }
    self->refreshFreeSpace();
    co_return outcome;
}

void AppState::applyOutcome(const SweepOutcome& outcome) {
    {
        const AnimatedChange animated(store_);
        for (auto* list : {&crumbItems, &downloadItems, &leftoverItems, &backupItems}) {
            *list = itemsAfter(outcome, list->get());
        }
        if (devSections->has_value()) devSections = sectionsAfter(outcome, **devSections);
    }
    takeOut(sweepSelection, outcome.removedIDs);
    takeOut(devSelection, outcome.removedIDs);
}

}  // namespace morvane
