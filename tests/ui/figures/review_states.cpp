#include "ui/figures/figure_screens.h"

namespace morvane {

// Items of every kind of care, in groups whose boxes are mixed, on and off; what is safe is
// selected.
void FigureScreens::showReview() {
    window().resize(1100, 1200);
    CleanupItem caches = trashItem("Caches", Safety::safe, 3'000'000'000);
    caches.location = "~/Library/Caches";
    caches.explanation = std::string(40, 'w') + " " + std::string(40, 'w') + " " +
                         std::string(40, 'w') + " " + std::string(40, 'w');
    caches.revealURL = library("Caches");
    CleanupItem logs = trashItem("Logs", Safety::regenerates, 2'000'000);
    logs.location = "~/Library/Logs";
    logs.explanation = "What programs wrote of themselves.";
    state->crumbItems = {caches, logs, trashItem("Old", Safety::review, 5'000'000)};
    state->downloadItems = {trashItem("Setup", Safety::safe, 4'000'000)};
    state->leftoverItems = {trashItem("Gone", Safety::review, 7'000'000)};
    state->sweepSelection = {"Caches", "Logs", "Setup"};
    state->scannedAt = system.now;
    state->scanPhase = ScanPhase::done;
    state->selection = SidebarItem::sweep;
    settle();
}

FigureScreens::States FigureScreens::reviewStates() {
    const auto with = [this](State more) {
        return [this, more = std::move(more)] {
            showReview();
            more();
        };
    };
    const auto hovering = [&](const char* control) {
        return with([this, control] { hover(QString::fromLatin1(control)); });
    };
    const auto holding = [&](const char* control) {
        return with([this, control] { hold(QString::fromLatin1(control)); });
    };
    const auto focusing = [&](const char* control) {
        return with([this, control] { focus(QString::fromLatin1(control)); });
    };
    const auto empty = [this](ScanPhase phase) {
        return [this, phase] {
            state->scannedAt = system.now;
            state->scanPhase = phase;
            state->selection = SidebarItem::sweep;
        };
    };
    return {
        {QStringLiteral("review.list"), with([] {})},
        {QStringLiteral("review.open"),
         with([this] { state->expandedSweepItems = {"Caches", "Logs"}; })},
        {QStringLiteral("review.none"), with([this] { state->sweepSelection = Ids{}; })},
        {QStringLiteral("review.all"),
         with([this] { state->sweepSelection = {"Caches", "Logs", "Old", "Setup", "Gone"}; })},
        {QStringLiteral("review.noPreset"), with([this] { state->sweepSelection = {"Caches"}; })},
        {QStringLiteral("review.delete"), with([this] { state->alwaysUseTrash = false; })},
        {QStringLiteral("review.sweeping"), with([this] { state->isSweeping = true; })},
        {QStringLiteral("review.fine"), with([this] { theme().setPixelRatio(2); })},
        {QStringLiteral("review.end"), with([this] {
             window().resize(980, 400);
             settle();
             QQuickItem& scroll = item(QStringLiteral("reviewScroll"));
             scroll.setProperty("contentY",
                                scroll.property("contentHeight").toDouble() - scroll.height());
         })},
        {QStringLiteral("review.rowHover"), hovering("row:Caches")},
        {QStringLiteral("review.lastRowHover"), hovering("row:Old")},
        {QStringLiteral("review.boxHover"), hovering("row:CachesRowCheck")},
        {QStringLiteral("review.boxHeld"), holding("row:CachesRowCheck")},
        {QStringLiteral("review.segmentHover"), hovering("preset1")},
        {QStringLiteral("review.segmentHeld"), holding("preset1")},
        {QStringLiteral("review.sweepHover"), hovering("reviewSweep")},
        {QStringLiteral("review.sweepHeld"), holding("reviewSweep")},
        {QStringLiteral("review.rowFocus"), focusing("row:CachesRow")},
        {QStringLiteral("review.groupFocus"), focusing("group:System CrumbsCheck")},
        {QStringLiteral("review.segmentFocus"), focusing("preset0")},
        {QStringLiteral("review.sweepFocus"), focusing("reviewSweep")},
        {QStringLiteral("review.empty"), empty(ScanPhase::empty)},
        {QStringLiteral("review.looking"), empty(ScanPhase::scanning)}};
}

}  // namespace morvane
