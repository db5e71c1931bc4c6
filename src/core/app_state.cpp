#include "core/app_state.h"

#include "core/history_json.h"
#include "measure/disk_usage.h"
#include "platform/remover.h"
#include "removal/sweep.h"
#include "services/full_disk_access.h"

namespace morvane {

namespace {

// The setters of the fields that are kept, by the form they are kept in.
auto keepBoolean(Defaults& defaults, const char* key) {
    return [&defaults, key](const bool& value) { defaults.setBoolean(key, value); };
}

auto keepDate(Defaults& defaults, const char* key) {
    return [&defaults, key](const std::optional<Instant>& value) {
        if (value) {
            defaults.setDate(key, *value);
        } else {
            defaults.remove(key);
        }
    };
}

template <class Case>
auto keepRawValue(Defaults& defaults, const char* key) {
    return [&defaults, key](const Case& value) {
        defaults.setText(key, std::string(rawValue(value)));
    };
}

auto keepTexts(Defaults& defaults, const char* key) {
    return
        [&defaults, key](const std::vector<std::string>& value) { defaults.setTexts(key, value); };
}

auto keepHistory(Defaults& defaults, const char* key) {
    return [&defaults, key](const std::vector<HistoryEntry>& history) {
        if (const auto json = encodeHistory(history)) defaults.setData(key, *json);
    };
}

OnboardingStep storedStep(const Defaults& defaults) {
    return onboardingStepFrom(defaults.text("onboardingStep").value_or(""))
        .value_or(OnboardingStep::welcome);
}

ScanSchedule storedSchedule(const Defaults& defaults) {
    return scanScheduleFrom(defaults.text("scanSchedule").value_or(""))
        .value_or(ScanSchedule::weekly);
}

std::vector<HistoryEntry> storedHistory(const Defaults& defaults) {
    const std::optional<std::string> json = defaults.data("sweepHistory");
    if (!json) return {};
    return decodeHistory(*json).value_or(std::vector<HistoryEntry>{});
}

DiskUsage storedDisk(const Defaults& defaults) {
    const std::optional<std::string> json = defaults.data("lastDiskUsage");
    if (!json) return {};
    return decodeDiskUsage(*json).value_or(DiskUsage{});
}

}  // namespace

AppState::AppState(AppStateNeeds needs, Key)
    : needs_(std::move(needs)),
      store_(needs_.runtime.executor),
      hasOnboarded(store_, "hasOnboarded", needs_.defaults.boolean("hasOnboarded").value_or(false),
                   keepBoolean(needs_.defaults, "hasOnboarded")),
      onboardingStep(store_, "onboardingStep", storedStep(needs_.defaults),
                     keepRawValue<OnboardingStep>(needs_.defaults, "onboardingStep")),
      fullDiskAccess(store_, "fullDiskAccess", probeFullDiskAccess(needs_.platform)),
      notificationStatus(store_, "notificationStatus", PermissionStatus::notDetermined),
      selection(store_, "selection", SidebarItem::overview),
      scanPhase(store_, "scanPhase", ScanPhase::idle),
      finishedCategories(store_, "finishedCategories", {}),
      scanLocation(store_, "scanLocation", {}),
      scannedAt(store_, "scannedAt", {}),
      freedMB(store_, "freedMB", 0),
      lastSweptAt(store_, "lastSweptAt", needs_.defaults.date("lastSweptAt"),
                  keepDate(needs_.defaults, "lastSweptAt")),
      disk(store_, "disk", storedDisk(needs_.defaults)),
      crumbItems(store_, "crumbItems", {}),
      downloadItems(store_, "downloadItems", {}),
      leftoverItems(store_, "leftoverItems", {}),
      backupItems(store_, "backupItems", {}),
      sweepSelection(store_, "sweepSelection", {}),
      expandedSweepItems(store_, "expandedSweepItems", {}),
      isSweeping(store_, "isSweeping", false),
      sweepProblem(store_, "sweepProblem", {}),
      devSections(store_, "devSections", {}),
      devSelection(store_, "devSelection", {}),
      isScanningDeveloper(store_, "isScanningDeveloper", false),
      apps(store_, "apps", {}),
      isScanningApps(store_, "isScanningApps", false),
      selectedAppID(store_, "selectedAppID", {}),
      appQuery(store_, "appQuery", {}),
      appSort(store_, "appSort", AppSort::size),
      excludedAppParts(store_, "excludedAppParts", {}),
      isUninstalling(store_, "isUninstalling", false),
      uninstallResult(store_, "uninstallResult", {}),
      appsScannedAt(store_, "appsScannedAt", {}),
      storagePath(store_, "storagePath", {}),
      storageHover(store_, "storageHover", {}),
      storageFolders(store_, "storageFolders", {}),
      storageSystemBytes(store_, "storageSystemBytes", {}),
      isScanningStorage(store_, "isScanningStorage", false),
      storageSkippedProtected(store_, "storageSkippedProtected", false),
      storageScannedAt(store_, "storageScannedAt", {}),
      files(store_, "files", {}),
      isScanningFiles(store_, "isScanningFiles", false),
      fileSelection(store_, "fileSelection", {}),
      focusedFileID(store_, "focusedFileID", {}),
      quickLookURL(store_, "quickLookURL", {}),
      isTrashingFiles(store_, "isTrashingFiles", false),
      fileResult(store_, "fileResult", {}),
      filesScannedAt(store_, "filesScannedAt", {}),
      fileMinMB(store_, "fileMinMB", 500.0),
      fileMinMonths(store_, "fileMinMonths", 0),
      fileKind(store_, "fileKind", {}),
      schedule(store_, "schedule", storedSchedule(needs_.defaults),
               keepRawValue<ScanSchedule>(needs_.defaults, "scanSchedule")),
      remindWhenReady(store_, "remindWhenReady",
                      needs_.defaults.boolean("remindWhenReady").value_or(true),
                      keepBoolean(needs_.defaults, "remindWhenReady")),
      showInMenuBar(store_, "showInMenuBar",
                    needs_.defaults.boolean("showInMenuBar").value_or(true),
                    keepBoolean(needs_.defaults, "showInMenuBar")),
      alwaysUseTrash(store_, "alwaysUseTrash",
                     needs_.defaults.boolean("alwaysUseTrash").value_or(true),
                     keepBoolean(needs_.defaults, "alwaysUseTrash")),
      lastScanAt(store_, "lastScanAt", needs_.defaults.date("lastScanAt"),
                 keepDate(needs_.defaults, "lastScanAt")),
      remindedAt(store_, "remindedAt", needs_.defaults.date("remindedAt"),
                 keepDate(needs_.defaults, "remindedAt")),
      ignoredFolders(store_, "ignoredFolders",
                     needs_.defaults.texts("ignoredFolders").value_or(std::vector<std::string>{}),
                     keepTexts(needs_.defaults, "ignoredFolders")),
      history(store_, "history", storedHistory(needs_.defaults),
              keepHistory(needs_.defaults, "sweepHistory")),
      restoreProblem(store_, "restoreProblem", {}),
      menuBarPhase(store_, "menuBarPhase", MenuBarPhase::idle),
      menuBarSweptMB(store_, "menuBarSweptMB", 0),
      menuBarTrashed(store_, "menuBarTrashed", {}),
      scope_(needs_.runtime) {}

AppState::~AppState() = default;

std::shared_ptr<AppState> AppState::create(AppStateNeeds needs) {
    return std::shared_ptr<AppState>(new AppState(std::move(needs), Key{}));
}

void AppState::drop() {
    store_.close();
    scope_.cancel();
}

bool AppState::isRemoving() const {
    return *isSweeping || *isUninstalling || *isTrashingFiles;
}

bool AppState::hasFullDiskAccess() const {
    return *fullDiskAccess == PermissionStatus::granted;
}

bool AppState::isFresh(const std::optional<Instant>& scannedAt_) const {
    constexpr std::chrono::seconds freshness{300};
    return scannedAt_ && *scannedAt_ > now() - freshness;
}

}  // namespace morvane
