#include "driver/fields.h"

#include <functional>
#include <map>

#include "core/app_state.h"

namespace morvane::driver {

namespace {

using Reader = std::function<Answer(const AppState&)>;
using Readers = std::map<std::string, Reader, std::less<>>;

template <class T>
void add(Readers& readers, const char* name, Observable<T> AppState::* field) {
    readers.emplace(name, [field](const AppState& state) { return form((state.*field).get()); });
}

template <class T>
void add(Readers& readers, const char* name, T (AppState::*computed)() const) {
    readers.emplace(name, [computed](const AppState& state) { return form((state.*computed)()); });
}

Answer categoryFigures(const AppState& state) {
    Answer object = Answer::object();
    for (ScanCategory category : allScanCategories) {
        object[std::string(caseName(category))] = state.categoryMB(category);
    }
    return object;
}

Answer historyStates(const AppState& state) {
    Answer object = Answer::object();
    for (const HistoryEntry& entry : *state.history) {
        object[entry.id] = form(state.historyState(entry));
    }
    return object;
}

// The names of the fields whose task is at work.
Answer tasksAtWork(const AppState& state) {
    const std::map<std::string, const TaskHandle*> handles{
        {"accessWatchTask", &state.accessWatchTask},
        {"appScanTask", &state.appScanTask},
        {"autoScanTask", &state.autoScanTask},
        {"diskTask", &state.diskTask},
        {"fileScanTask", &state.fileScanTask},
        {"locationTask", &state.locationTask},
        {"scanTask", &state.scanTask},
        {"storageTask", &state.storageTask}};
    Answer names = Answer::array();
    for (const auto& [name, handle] : handles) {
        if (handle->isAtWork()) names.push_back(name);
    }
    return names;
}

void addFields(Readers& readers) {
    add(readers, "hasOnboarded", &AppState::hasOnboarded);
    add(readers, "onboardingStep", &AppState::onboardingStep);
    add(readers, "fullDiskAccess", &AppState::fullDiskAccess);
    add(readers, "notificationStatus", &AppState::notificationStatus);
    add(readers, "selection", &AppState::selection);
    add(readers, "scanPhase", &AppState::scanPhase);
    add(readers, "finishedCategories", &AppState::finishedCategories);
    add(readers, "scanLocation", &AppState::scanLocation);
    add(readers, "scannedAt", &AppState::scannedAt);
    add(readers, "freedMB", &AppState::freedMB);
    add(readers, "lastSweptAt", &AppState::lastSweptAt);
    add(readers, "disk", &AppState::disk);
    add(readers, "crumbItems", &AppState::crumbItems);
    add(readers, "downloadItems", &AppState::downloadItems);
    add(readers, "leftoverItems", &AppState::leftoverItems);
    add(readers, "backupItems", &AppState::backupItems);
    add(readers, "sweepSelection", &AppState::sweepSelection);
    add(readers, "expandedSweepItems", &AppState::expandedSweepItems);
    add(readers, "isSweeping", &AppState::isSweeping);
    add(readers, "sweepProblem", &AppState::sweepProblem);
    add(readers, "devSections", &AppState::devSections);
    add(readers, "devSelection", &AppState::devSelection);
    add(readers, "isScanningDeveloper", &AppState::isScanningDeveloper);
    add(readers, "apps", &AppState::apps);
    add(readers, "isScanningApps", &AppState::isScanningApps);
    add(readers, "selectedAppID", &AppState::selectedAppID);
    add(readers, "appQuery", &AppState::appQuery);
    add(readers, "appSort", &AppState::appSort);
    add(readers, "excludedAppParts", &AppState::excludedAppParts);
    add(readers, "isUninstalling", &AppState::isUninstalling);
    add(readers, "uninstallResult", &AppState::uninstallResult);
    add(readers, "appsScannedAt", &AppState::appsScannedAt);
    add(readers, "storagePath", &AppState::storagePath);
    add(readers, "storageHover", &AppState::storageHover);
    add(readers, "storageFolders", &AppState::storageFolders);
    add(readers, "storageSystemBytes", &AppState::storageSystemBytes);
    add(readers, "isScanningStorage", &AppState::isScanningStorage);
    add(readers, "storageSkippedProtected", &AppState::storageSkippedProtected);
    add(readers, "storageScannedAt", &AppState::storageScannedAt);
    add(readers, "files", &AppState::files);
    add(readers, "isScanningFiles", &AppState::isScanningFiles);
    add(readers, "fileSelection", &AppState::fileSelection);
    add(readers, "focusedFileID", &AppState::focusedFileID);
    add(readers, "quickLookURL", &AppState::quickLookURL);
    add(readers, "isTrashingFiles", &AppState::isTrashingFiles);
    add(readers, "fileResult", &AppState::fileResult);
    add(readers, "filesScannedAt", &AppState::filesScannedAt);
    add(readers, "fileMinMB", &AppState::fileMinMB);
    add(readers, "fileMinMonths", &AppState::fileMinMonths);
    add(readers, "fileKind", &AppState::fileKind);
    add(readers, "schedule", &AppState::schedule);
    add(readers, "remindWhenReady", &AppState::remindWhenReady);
    add(readers, "showInMenuBar", &AppState::showInMenuBar);
    add(readers, "alwaysUseTrash", &AppState::alwaysUseTrash);
    add(readers, "lastScanAt", &AppState::lastScanAt);
    add(readers, "remindedAt", &AppState::remindedAt);
    add(readers, "ignoredFolders", &AppState::ignoredFolders);
    add(readers, "history", &AppState::history);
    add(readers, "restoreProblem", &AppState::restoreProblem);
    add(readers, "menuBarPhase", &AppState::menuBarPhase);
    add(readers, "menuBarSweptMB", &AppState::menuBarSweptMB);
    add(readers, "menuBarTrashed", &AppState::menuBarTrashed);
}

void addComputed(Readers& readers) {
    add(readers, "foundSoFarMB", &AppState::foundSoFarMB);
    add(readers, "lastSweptWords", &AppState::lastSweptWords);
    add(readers, "sweepItems", &AppState::sweepItems);
    add(readers, "devItems", &AppState::devItems);
    add(readers, "sweepGroups", &AppState::sweepGroups);
    add(readers, "safeSelection", &AppState::safeSelection);
    add(readers, "safeMB", &AppState::safeMB);
    add(readers, "selectedSweepItems", &AppState::selectedSweepItems);
    add(readers, "selectedDevItems", &AppState::selectedDevItems);
    add(readers, "activePreset", &AppState::activePreset);
    add(readers, "slices", &AppState::slices);
    add(readers, "visibleApps", &AppState::visibleApps);
    add(readers, "storageRoot", &AppState::storageRoot);
    add(readers, "storageChain", &AppState::storageChain);
    add(readers, "filteredFiles", &AppState::filteredFiles);
    add(readers, "selectedFiles", &AppState::selectedFiles);
    readers.emplace("categoryMB", categoryFigures);
    readers.emplace("historyStates", historyStates);
    readers.emplace("tasks", tasksAtWork);
}

const Readers& readers() {
    static const Readers all = [] {
        Readers made;
        addFields(made);
        addComputed(made);
        return made;
    }();
    return all;
}

}  // namespace

std::optional<Answer> readField(const AppState& state, const std::string& name) {
    const auto found = readers().find(name);
    if (found == readers().end()) return std::nullopt;
    return found->second(state);
}

}  // namespace morvane::driver
