#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/observable.h"
#include "model/apps.h"
#include "model/cleanup.h"
#include "model/disk.h"
#include "model/files.h"
#include "model/history.h"
#include "model/vocabulary.h"
#include "platform/defaults.h"
#include "platform/platform.h"
#include "tasks/scope.h"
#include "tasks/task.h"

namespace morvane {

class Remover;
struct SweepOutcome;
namespace CleanupScanner {
struct LibraryNames;
}

// What AppState stands on. All of it outlives the AppState and its tasks.
struct AppStateNeeds {
    Runtime runtime;
    Platform platform;
    Remover& remover;
    Defaults& defaults;
};

// The one store of the program. Screens read its fields and call its operations; nothing else holds
// what the program knows. Lives on the main thread, and so do all its operations: one that is told
// as a task returns at once and publishes through the fields.
class AppState : public std::enable_shared_from_this<AppState> {
public:
    // Reads what was kept, probes Full Disk Access, starts nothing.
    [[nodiscard]] static std::shared_ptr<AppState> create(AppStateNeeds needs);
    ~AppState();
    AppState(const AppState&) = delete;
    AppState& operator=(const AppState&) = delete;

    // Cancels every task and blocks nobody. From then on nothing is stored and nobody is told.
    void drop();
    // Whether every task has ended.
    [[nodiscard]] bool isIdle() const { return scope_.isEmpty(); }
    [[nodiscard]] std::size_t tasksAtWork() const { return scope_.size(); }
    // Whether something is on its way into the Trash or off the disk.
    [[nodiscard]] bool isRemoving() const;

    [[nodiscard]] Store& store() { return store_; }
    [[nodiscard]] const Platform& platform() const { return needs_.platform; }
    [[nodiscard]] Instant now() const { return needs_.runtime.executor.now(); }

private:
    struct Key {};
    AppStateNeeds needs_;
    Store store_;

public:
    // ---- Permissions and onboarding
    Observable<bool> hasOnboarded;
    Observable<OnboardingStep> onboardingStep;
    Observable<PermissionStatus> fullDiskAccess;
    Observable<PermissionStatus> notificationStatus;

    // ---- Scanning
    Observable<std::optional<SidebarItem>> selection;
    Observable<ScanPhase> scanPhase;
    Observable<std::set<ScanCategory>> finishedCategories;
    Observable<std::string> scanLocation;
    Observable<std::optional<Instant>> scannedAt;  // of this run of the program
    Observable<double> freedMB;
    Observable<std::optional<Instant>> lastSweptAt;
    Observable<DiskUsage> disk;

    // ---- What a scan found, and what is chosen of it
    Observable<std::vector<CleanupItem>> crumbItems;
    Observable<std::vector<CleanupItem>> downloadItems;
    Observable<std::vector<CleanupItem>> leftoverItems;
    Observable<std::vector<CleanupItem>> backupItems;
    Observable<std::set<std::string>> sweepSelection;
    Observable<std::set<std::string>> expandedSweepItems;
    Observable<bool> isSweeping;
    Observable<std::optional<std::string>> sweepProblem;
    Observable<std::optional<std::vector<DevSection>>> devSections;  // absent: never scanned
    Observable<std::set<std::string>> devSelection;
    Observable<bool> isScanningDeveloper;

    // ---- Applications
    Observable<std::vector<InstalledApp>> apps;
    Observable<bool> isScanningApps;
    Observable<std::optional<std::string>> selectedAppID;
    Observable<std::string> appQuery;
    Observable<AppSort> appSort;
    Observable<std::set<std::string>> excludedAppParts;
    Observable<bool> isUninstalling;
    Observable<std::optional<UninstallResult>> uninstallResult;
    Observable<std::optional<Instant>> appsScannedAt;

    // ---- The storage map
    Observable<std::vector<std::string>> storagePath;
    Observable<std::optional<std::string>> storageHover;
    Observable<std::vector<StorageNode>> storageFolders;
    Observable<std::optional<std::int64_t>> storageSystemBytes;
    Observable<bool> isScanningStorage;
    Observable<bool> storageSkippedProtected;
    Observable<std::optional<Instant>> storageScannedAt;

    // ---- Large files
    Observable<std::vector<LargeFile>> files;
    Observable<bool> isScanningFiles;
    Observable<std::set<std::string>> fileSelection;
    Observable<std::optional<std::string>> focusedFileID;
    Observable<std::optional<std::filesystem::path>> quickLookURL;
    Observable<bool> isTrashingFiles;
    Observable<std::optional<TrashResult>> fileResult;
    Observable<std::optional<Instant>> filesScannedAt;
    Observable<double> fileMinMB;
    Observable<std::int64_t> fileMinMonths;
    Observable<std::optional<FileKind>> fileKind;

    // ---- Settings and what is remembered
    Observable<ScanSchedule> schedule;
    Observable<bool> remindWhenReady;
    Observable<bool> showInMenuBar;
    Observable<bool> alwaysUseTrash;
    Observable<std::optional<Instant>> lastScanAt;
    Observable<std::optional<Instant>> remindedAt;
    Observable<std::vector<std::string>> ignoredFolders;
    Observable<std::vector<HistoryEntry>> history;
    Observable<std::map<std::string, std::string>> restoreProblem;  // by entry id
    Observable<MenuBarPhase> menuBarPhase;
    Observable<double> menuBarSweptMB;
    Observable<MovedItems> menuBarTrashed;

    // ---- Handles of tasks at work; an empty one stands for none
    TaskHandle scanTask;
    TaskHandle locationTask;
    TaskHandle diskTask;
    TaskHandle appScanTask;
    TaskHandle storageTask;
    TaskHandle fileScanTask;
    TaskHandle autoScanTask;
    TaskHandle accessWatchTask;

    // ---- Scanning (scan.cpp, developer_scan.cpp)
    void startScan(bool showOverview);
    void cancelScan();
    void settleScanPhase();
    void finishOnboarding();
    void scanDeveloper();
    [[nodiscard]] double categoryMB(ScanCategory category) const;
    [[nodiscard]] double foundSoFarMB() const;
    [[nodiscard]] std::string lastSweptWords() const;

    // ---- Selection (selection.cpp)
    [[nodiscard]] std::vector<CleanupItem> sweepItems() const;
    // What `sweepItems` holds, where it stands: no copy is made of what may be very many. Each
    // lives until its list changes.
    [[nodiscard]] std::vector<const CleanupItem*> sweepItemsInPlace() const;
    [[nodiscard]] std::vector<CleanupItem> devItems() const;
    [[nodiscard]] std::vector<SweepGroup> sweepGroups() const;
    [[nodiscard]] std::set<std::string> safeSelection() const;
    [[nodiscard]] double safeMB() const;
    [[nodiscard]] std::vector<CleanupItem> selectedSweepItems() const;
    [[nodiscard]] std::vector<CleanupItem> selectedDevItems() const;
    [[nodiscard]] std::optional<SweepPreset> activePreset() const;
    [[nodiscard]] CheckState checkState(const SweepGroup& group) const;
    void applyPreset(SweepPreset preset);
    void toggleSweepItem(const std::string& id);
    void toggleDevItem(const std::string& id);
    void toggleExpanded(const std::string& id);
    void toggleGroup(const SweepGroup& group, CheckState state);

    // ---- The ignore list (ignore_list.cpp)
    void addIgnoredFolders();
    void removeIgnoredFolder(const std::string& path);
    void applyIgnoreList(const std::vector<std::string>& folders);

    // ---- Removal (sweep.cpp, restore.cpp)
    // Does nothing without items or while a sweep runs.
    void sweep(std::vector<CleanupItem> items, std::optional<std::string> label);
    void sweepFromMenuBar();
    void undoMenuBarSweep();
    void restore(const HistoryEntry& entry);
    void recordSweep(const std::string& summary, const MovedItems& trashed);
    [[nodiscard]] HistoryState historyState(const HistoryEntry& entry) const;

    // ---- The disk (disk.cpp)
    void refreshDisk();
    void refreshFreeSpace();
    [[nodiscard]] std::vector<DiskUsage::Slice> slices() const;

    // ---- Applications (apps.cpp, uninstall.cpp)
    void scanApps(bool force);
    [[nodiscard]] std::vector<InstalledApp> visibleApps() const;
    [[nodiscard]] std::vector<AppPart> selectedParts(const InstalledApp& app) const;
    void uninstall(const InstalledApp& app);

    // ---- The storage map (storage.cpp)
    void scanStorage(bool force);
    [[nodiscard]] StorageNode storageRoot() const;
    [[nodiscard]] std::vector<StorageNode> storageChain() const;

    // ---- Large files (large_files.cpp)
    void scanFiles(bool force);
    [[nodiscard]] std::vector<LargeFile> filteredFiles() const;
    [[nodiscard]] std::vector<LargeFile> selectedFiles() const;
    void trashSelectedFiles();

    // ---- The schedule and reminders (schedule.cpp)
    void startAutoScanLoop();
    void autoScanTick();
    void remindIfReady();

    // ---- Permissions (permissions.cpp)
    void refreshPermissions();
    void requestNotifications();
    void watchForAccess();

private:
    AppState(AppStateNeeds needs, Key key);
    using Self = std::shared_ptr<AppState>;

    // Tasks keep the store alive; the first argument is this object.
    static Task<void> runScan(Self self);
    static Task<void> runCrumbs(Self self);
    static Task<void> runLeftovers(Self self);
    static Task<void> runLargeFiles(Self self);
    static Task<void> runBackups(Self self);
    static Task<void> runDeveloper(Self self);
    static Task<void> tickLocation(Self self);
    static Task<void> runDisk(Self self, bool showProgress, std::vector<DiskCategory> walked,
                              DiskUsage working);
    static Task<void> measureCategory(Self self, DiskCategory category, bool showProgress,
                                      DiskUsage& working);
    static Task<void> runApps(Self self, bool showProgress);
    static Task<void> loadOneApp(Self self, std::filesystem::path bundle, bool includeContainers,
                                 const CleanupScanner::LibraryNames& library, bool showProgress,
                                 std::vector<InstalledApp>& collected);
    static Task<void> runStorage(Self self, bool showProgress);
    static Task<void> scanStorageRoot(Self self, std::filesystem::path root,
                                      const std::set<std::string>& skipped, bool showProgress,
                                      std::vector<StorageNode>& found);
    static Task<void> runFiles(Self self, bool showProgress);
    static Task<void> scanFilesBelow(Self self, std::filesystem::path root, bool showProgress,
                                     std::vector<LargeFile>& collected);
    static Task<void> runSweep(Self self, std::vector<CleanupItem> items,
                               std::optional<std::string> label);
    static Task<void> runMenuBarSweep(Self self, std::vector<CleanupItem> items);
    static Task<SweepOutcome> performSweep(Self self, std::vector<CleanupItem> items,
                                           std::optional<std::string> label);
    static Task<void> runUninstall(Self self, InstalledApp app, std::vector<AppPart> parts);
    static Task<bool> quit(Self self, InstalledApp app);
    static Task<void> runTrashFiles(Self self, std::vector<LargeFile> selected);
    static Task<void> runAutoScanLoop(Self self);
    static Task<void> runReminder(Self self, double amount);
    static Task<void> runRefreshPermissions(Self self);
    static Task<void> runRequestNotifications(Self self);
    static Task<void> runAccessWatch(Self self);

    void finish(ScanCategory category);
    void startLocationTicker();
    [[nodiscard]] ScanPhase settledPhase() const;
    void applyOutcome(const SweepOutcome& outcome);
    void takeOutOfApps(const InstalledApp& app, const std::vector<AppPart>& gone);
    void saveDiskUsage(const DiskUsage& usage);
    void ignoredFoldersChanged(const std::vector<std::string>& former);
    void setIgnoredFolders(std::vector<std::string> folders);
    void setFullDiskAccess(PermissionStatus status);
    [[nodiscard]] bool hasFullDiskAccess() const;
    [[nodiscard]] bool isFresh(const std::optional<Instant>& scannedAt) const;

    Scope scope_;
};

}  // namespace morvane
