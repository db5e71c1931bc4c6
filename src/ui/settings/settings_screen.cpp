#include "ui/settings/settings_screen.h"

#include <iterator>

#include "core/limits.h"
#include "model/path_text.h"
#include "model/words.h"
#include "removal/put_back.h"
#include "services/full_disk_access.h"
#include "services/updater.h"

namespace morvane::screens {

namespace {

SweepingSection sweepingSection(const AppState& state) {
    const bool usesTrash = *state.alwaysUseTrash;
    SweepingSection section{
        .title = "Sweeping",
        .schedule = {.label = "Scan automatically"},
        .remind = {.label = "Let me know when more than 5 GB is ready to sweep",
                   .on = *state.remindWhenReady},
        .menuBar = {.label = "Show Morvane in the menu bar", .on = *state.showInMenuBar},
        .trash = {.label = "Always move to the Trash", .on = usesTrash},
        .trashCaption = usesTrash
                            ? "Recommended. You can get anything back until you empty the Trash."
                            : "Off: swept files are deleted right away and can’t be put back."};
    for (ScanSchedule schedule : allSchedules) {
        if (schedule == *state.schedule) {
            section.schedule.selected = std::ssize(section.schedule.options);
        }
        section.schedule.options.emplace_back(rawValue(schedule));
    }
    if (*state.notificationStatus == PermissionStatus::denied) {
        section.notificationsOff =
            SettingsNote{.text = "Notifications are off for Morvane.",
                         .button = {.label = "Open System Settings", .kind = ButtonKind::link}};
    }
    return section;
}

IgnoredFolderRow ignoredFolderRow(const std::string& folder, bool exists, const AppState& state) {
    IgnoredFolderRow row{.id = folder,
                         .symbol = exists ? "folder" : "questionmark.folder",
                         .label = abbreviatedWithTilde(pathFromText(folder), state.platform().home),
                         .exists = exists,
                         .tooltip = exists ? folder : folder + " no longer exists",
                         .remove = {.label = "Remove", .kind = ButtonKind::plain}};
    if (exists) row.show = Button{.label = "Show in Finder", .kind = ButtonKind::plain};
    return row;
}

IgnoreListSection ignoreListSection(const AppState& state, const SettingsFacts& facts) {
    IgnoreListSection section{
        .title = "Ignore list",
        .add = {.label = "Add Folder…", .symbol = "plus"},
        .footer = "Morvane never looks inside these folders or suggests anything from them."};
    for (const std::string& folder : *state.ignoredFolders) {
        section.rows.push_back(
            ignoredFolderRow(folder, facts.ignoredFoldersThere.contains(folder), state));
    }
    return section;
}

void showState(HistoryRow& row, const HistoryEntry& entry, const AppState& state) {
    switch (row.state) {
        case HistoryState::putBack:
            row.words = "Put back";
            break;
        case HistoryState::deleted:
            row.words = "Deleted right away";
            break;
        case HistoryState::restorable: {
            row.restore = Button{.label = "Restore"};
            const auto problem = state.restoreProblem->find(entry.id);
            if (problem != state.restoreProblem->end()) row.problem = problem->second;
            break;
        }
        case HistoryState::emptied:
            row.words = "Trash was emptied";
            break;
    }
}

// The entry itself says when nothing of it can lie in the Trash.
std::optional<HistoryState> stateOf(const HistoryEntry& entry, const SettingsFacts& facts) {
    if (entry.restored) return HistoryState::putBack;
    if (entry.trashed.empty()) return HistoryState::deleted;
    const auto known = facts.historyStates.find(entry.id);
    if (known == facts.historyStates.end()) return std::nullopt;
    return known->second;
}

HistorySection historySection(const AppState& state, const SettingsFacts& facts) {
    HistorySection section{.title = "Sweep history",
                           .footer = "Your last " + std::to_string(mostHistoryEntries) +
                                     " sweeps. Anything still in the Trash can be put back."};
    if (state.history->empty()) section.message = "Nothing swept yet.";
    for (const HistoryEntry& entry : *state.history) {
        HistoryRow row{.id = entry.id,
                       .date = sweepDateText(entry.date, state.now(), state.platform().region),
                       .summary = entry.summary};
        if (const std::optional<HistoryState> known = stateOf(entry, facts)) {
            row.state = *known;
            showState(row, entry, state);
        }
        section.rows.push_back(std::move(row));
    }
    return section;
}

UpdatesSection updatesSection(const Updater& updater, const BundleInfo& bundle) {
    const bool checks = updater.automaticallyChecksForUpdates();
    return {.title = "Updates",
            .check = {.label = "Check for updates automatically", .on = checks},
            .download = {.label = "Download and install updates automatically",
                         .on = updater.automaticallyDownloadsUpdates(),
                         .enabled = checks},
            .version = "Version " + bundle.shortVersion.value_or("?") + " (" +
                       bundle.version.value_or("?") + ")",
            .button = {.label = "Check for Updates…", .enabled = updater.canCheckForUpdates()}};
}

}  // namespace

SettingsFacts lookAtDisk(const Platform& platform, const std::vector<std::string>& ignoredFolders,
                         const std::vector<HistoryEntry>& history) {
    SettingsFacts facts;
    for (const std::string& folder : ignoredFolders) {
        if (platform.files.exists(pathFromText(folder))) facts.ignoredFoldersThere.insert(folder);
    }
    for (const HistoryEntry& entry : history) {
        facts.historyStates.emplace(
            entry.id, historyState(entry, newerThan(entry.id, history), platform.files));
    }
    return facts;
}

SettingsScreen::SettingsScreen(ScreenNeeds needs) : needs_(needs) {
    AppState& state = needs_.state;
    Updater& updater = needs_.updater;
    onPress("sweeping.schedule", [&state](const Press& press) {
        state.schedule = allSchedules.at(static_cast<std::size_t>(press.index));
    });
    onPress("sweeping.remind", [&state](const Press& press) {
        if (press.on) {
            state.requestNotifications();
        } else {
            state.remindWhenReady = false;
        }
    });
    onPress("sweeping.notificationsOff.button",
            [&state](const Press&) { state.platform().workspace.openURL(notificationsPane); });
    onPress("sweeping.menuBar", [&state](const Press& press) { state.showInMenuBar = press.on; });
    onPress("sweeping.trash", [&state](const Press& press) { state.alwaysUseTrash = press.on; });
    onPress("ignoreList.rows.show", [&state](const Press& press) {
        state.platform().workspace.reveal(pathFromText(press.row));
    });
    onPress("ignoreList.rows.remove",
            [&state](const Press& press) { state.removeIgnoredFolder(press.row); });
    onPress("ignoreList.add", [&state](const Press&) { state.addIgnoredFolders(); });
    onPress("history.rows.restore", [this](const Press& press) { restore(press.row); });
    onPress("updates.check",
            [&updater](const Press& press) { updater.setAutomaticallyChecksForUpdates(press.on); });
    onPress("updates.download",
            [&updater](const Press& press) { updater.setAutomaticallyDownloadsUpdates(press.on); });
    onPress("updates.button", [&updater](const Press&) { updater.checkForUpdates(); });
}

SettingsContent SettingsScreen::content() const {
    const AppState& state = needs_.state;
    return content(lookAtDisk(state.platform(), *state.ignoredFolders, *state.history));
}

SettingsContent SettingsScreen::content(const SettingsFacts& facts) const {
    const AppState& state = needs_.state;
    return {.title = "Settings",
            .sweeping = sweepingSection(state),
            .ignoreList = ignoreListSection(state, facts),
            .history = historySection(state, facts),
            .updates = updatesSection(needs_.updater, state.platform().bundle)};
}

void SettingsScreen::appear() {
    needs_.state.refreshPermissions();
}

void SettingsScreen::restore(const std::string& id) {
    const std::vector<HistoryEntry> history = *needs_.state.history;
    for (const HistoryEntry& entry : history) {
        if (entry.id == id) needs_.state.restore(entry);
    }
}

}  // namespace morvane::screens
