#include "ui/figures/figure_screens.h"

namespace morvane {

// All of it at once.
void FigureScreens::showSettings() {
    window().resize(1100, 1400);
    state->selection = SidebarItem::settings;
    settle();
}

// The newest first: one that can come back but did not, one put back, one whose Trash was emptied,
// one deleted right away.
void FigureScreens::fillHistory() {
    files.addFile(trash("Four"), 10);
    state->recordSweep("One", {});
    state->recordSweep("Two", {{home("Two"), trash("Two")}});
    state->recordSweep("Three", {{home("Three"), trash("Three")}});
    std::vector<HistoryEntry> history = *state->history;
    history.front().restored = true;
    state->history = history;
    state->recordSweep("Four", {{home("Four"), trash("Four")}});
    state->restoreProblem = {{state->history->front().id, "Something stands in its place."}};
    settle();
    EXPECT_TRUE(loop.runUntil([this] { return find(QStringLiteral("sweep0Restore")) != nullptr; }));
}

FigureScreens::States FigureScreens::settingsStates() {
    const auto with = [this](State more) {
        return [this, more = std::move(more)] {
            showSettings();
            more();
        };
    };
    const auto hovering = [&](const char* control) {
        return with([this, control] { hover(QString::fromLatin1(control)); });
    };
    const auto ignore = [this] {
        files.addFolder(home("Kept"));
        state->ignoredFolders = {home("Kept").native(), home("Missing").native()};
        settle();
        EXPECT_TRUE(
            loop.runUntil([this] { return find(QStringLiteral("ignored0Show")) != nullptr; }));
        settle();
    };
    return {{QStringLiteral("settings.form"), with([] {})},
            {QStringLiteral("settings.denied"),
             with([this] { state->notificationStatus = PermissionStatus::denied; })},
            {QStringLiteral("settings.deniedHover"), with([this] {
                 state->notificationStatus = PermissionStatus::denied;
                 settle();
                 hover(QStringLiteral("notificationsOffButton"));
             })},
            {QStringLiteral("settings.off"), with([this] {
                 state->schedule = ScanSchedule::off;
                 state->remindWhenReady = false;
                 state->showInMenuBar = false;
                 state->alwaysUseTrash = false;
             })},
            {QStringLiteral("settings.folders"), with(ignore)},
            {QStringLiteral("settings.folderHover"), with([this, ignore] {
                 ignore();
                 hover(QStringLiteral("ignored0Remove"));
             })},
            {QStringLiteral("settings.folderFocus"), with([this, ignore] {
                 ignore();
                 focus(QStringLiteral("ignored0"));
             })},
            {QStringLiteral("settings.history"), with([this] { fillHistory(); })},
            {QStringLiteral("settings.checking"), with([this] {
                 updates.canCheck = false;
                 updates.changes.tell();
                 updater->setAutomaticallyChecksForUpdates(true);
             })},
            {QStringLiteral("settings.switchHover"), hovering("trashSwitch")},
            {QStringLiteral("settings.switchHeld"),
             with([this] { hold(QStringLiteral("trashSwitch")); })},
            {QStringLiteral("settings.switchFocus"),
             with([this] { focus(QStringLiteral("trashSwitch")); })},
            {QStringLiteral("settings.buttonHover"), hovering("addFolder")}};
}

}  // namespace morvane
