#include <array>
#include <chrono>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "core/app_state.h"
#include "core/ignore_rules.h"
#include "model/words.h"
#include "scanners/backups.h"
#include "scanners/crumbs.h"
#include "scanners/downloads.h"
#include "scanners/inventory.h"
#include "scanners/leftovers.h"
#include "tasks/background.h"
#include "tasks/sleep.h"

namespace morvane {

namespace {

// A show for the user: it does not follow what the scanners are reading.
constexpr std::array<std::string_view, 11> scanLocations{
    "~/Library/Caches",
    "~/Library/Logs",
    "~/Library/Developer/Xcode/DerivedData",
    "~/Library/Application Support",
    "~/Library/Preferences",
    "~/.npm/_cacache",
    "~/Library/Developer/CoreSimulator",
    "~/Downloads",
    "~/Movies",
    "~/Documents",
    "~/Library/Application Support/MobileSync/Backup"};

double megabytesOf(const std::vector<CleanupItem>& items) {
    double sum = 0;
    for (const CleanupItem& item : items) sum += static_cast<double>(item.bytes) / 1e6;
    return sum;
}

}  // namespace

void AppState::startScan(bool showOverview) {
    if (showOverview) selection = SidebarItem::overview;
    // A cancelled scan publishes nothing, so nobody waits for it.
    scanTask.cancel();
    finishedCategories = {};
    sweepProblem = std::nullopt;
    {
        const AnimatedChange animated(store_);
        scanPhase = ScanPhase::scanning;
    }
    startLocationTicker();
    scanTask = scope_.start(runScan(shared_from_this()));
}

void AppState::cancelScan() {
    scanTask.cancel();
    locationTask.cancel();
    finishedCategories = {};
    const AnimatedChange animated(store_);
    settleScanPhase();
}

void AppState::settleScanPhase() {
    scanPhase.setIfDifferent(scannedAt.get() ? settledPhase() : ScanPhase::idle);
}

ScanPhase AppState::settledPhase() const {
    double sum = 0;
    for (ScanCategory category : allScanCategories) sum += categoryMB(category);
    return sum > 0 ? ScanPhase::done : ScanPhase::empty;
}

void AppState::finishOnboarding() {
    accessWatchTask.cancel();
    accessWatchTask.reset();
    hasOnboarded = true;
    selection = SidebarItem::overview;
    scanPhase.setIfDifferent(ScanPhase::idle);
}

double AppState::categoryMB(ScanCategory category) const {
    switch (category) {
        case ScanCategory::crumbs:
            return megabytesOf(*crumbItems) + megabytesOf(*downloadItems);
        case ScanCategory::developer:
            return megabytesOf(devItems());
        case ScanCategory::leftovers:
            return megabytesOf(*leftoverItems);
        case ScanCategory::largeFiles: {
            // The card speaks of files unopened in over a year, whatever the list is filtered by.
            double sum = 0;
            for (const LargeFile& file : *files) {
                if (ageInMonths(file, now()) >= 12) sum += static_cast<double>(file.bytes) / 1e6;
            }
            return sum;
        }
        case ScanCategory::backups:
            return megabytesOf(*backupItems);
    }
    return 0;
}

double AppState::foundSoFarMB() const {
    double sum = 0;
    for (ScanCategory category : *finishedCategories) sum += categoryMB(category);
    return sum;
}

std::string AppState::lastSweptWords() const {
    return lastSweptText(*lastSweptAt, now(), platform().region);
}

void AppState::finish(ScanCategory category) {
    const AnimatedChange animated(store_);
    finishedCategories.update([&](std::set<ScanCategory>& finished) { finished.insert(category); });
}

Task<void> AppState::runScan(Self self) {
    {
        Group categories(co_await currentContext());
        categories.start(runCrumbs(self));
        categories.start(runDeveloper(self));
        categories.start(runLeftovers(self));
        categories.start(runLargeFiles(self));
        categories.start(runBackups(self));
        co_await categories.wait();
    }
    // A scan that was replaced leaves the ticker to the one that replaced it.
    if (co_await isCancelled()) co_return;
    self->locationTask.cancel();
    const Instant ended = self->now();
    self->scannedAt = ended;
    self->lastScanAt = ended;
    self->sweepSelection.setIfDifferent(self->safeSelection());
    self->devSelection.setIfDifferent(safeIDs(self->devItems()));
    {
        const AnimatedChange animated(self->store_);
        self->scanPhase = self->settledPhase();
    }
    self->remindIfReady();
}

Task<void> AppState::runCrumbs(Self self) {
    std::set<std::string> running;
    for (const RunningApplication& application : self->platform().workspace.runningApplications()) {
        if (application.bundleIdentifier) running.insert(*application.bundleIdentifier);
    }
    const Instant now = self->now();
    const Platform& platform = self->platform();
    const CleanupScanner::InstalledAppIndex installed =
        co_await background([&platform, now](const StopToken& token) {
            return CleanupScanner::installedAppIndex(ScanContext{platform, now, token});
        });

    std::vector<CleanupItem> crumbs;
    std::vector<CleanupItem> downloads;
    {
        Group pair(co_await currentContext());
        pair.start([](const Platform& where, Instant at, const std::set<std::string>& open,
                      std::vector<CleanupItem>& found) -> Task<void> {
            found = co_await background([&where, at, &open](const StopToken& token) {
                return CleanupScanner::scanCrumbs(ScanContext{where, at, token}, open);
            });
        }(platform, now, running, crumbs));
        pair.start([](Self state, Instant at, const std::vector<std::string>& names,
                      std::vector<CleanupItem>& found) -> Task<void> {
            // The system keeps the folder private: without access it is not touched.
            if (!state->hasFullDiskAccess()) co_return;
            found = co_await background([state, at, &names](const StopToken& token) {
                return CleanupScanner::scanDownloads(ScanContext{state->platform(), at, token},
                                                     names);
            });
        }(self, now, installed.names, downloads));
        co_await pair.wait();
    }
    if (co_await isCancelled()) co_return;
    self->crumbItems = keepingIgnored(std::move(crumbs), *self->ignoredFolders);
    self->downloadItems = keepingIgnored(std::move(downloads), *self->ignoredFolders);
    self->finish(ScanCategory::crumbs);
}

Task<void> AppState::runLeftovers(Self self) {
    const bool includeContainers = self->hasFullDiskAccess();
    const Instant now = self->now();
    std::vector<CleanupItem> found =
        co_await background([self, now, includeContainers](const StopToken& token) {
            const ScanContext scan{self->platform(), now, token};
            return CleanupScanner::scanLeftovers(
                scan, CleanupScanner::installedAppIndex(scan).bundleIDs, includeContainers);
        });
    if (co_await isCancelled()) co_return;
    self->leftoverItems = keepingIgnored(std::move(found), *self->ignoredFolders);
    self->finish(ScanCategory::leftovers);
}

Task<void> AppState::runLargeFiles(Self self) {
    self->scanFiles(true);
    // The file scan is a task of its own, perhaps begun by its screen: it outlives this scan.
    co_await self->fileScanTask.ended();
    if (co_await isCancelled()) co_return;
    self->finish(ScanCategory::largeFiles);
}

Task<void> AppState::runBackups(Self self) {
    std::vector<CleanupItem> found;
    if (self->hasFullDiskAccess()) {
        const Instant now = self->now();
        found = co_await background([self, now](const StopToken& token) {
            return CleanupScanner::scanBackups(ScanContext{self->platform(), now, token});
        });
    }
    if (co_await isCancelled()) co_return;
    self->backupItems = keepingIgnored(std::move(found), *self->ignoredFolders);
    self->finish(ScanCategory::backups);
}

void AppState::startLocationTicker() {
    locationTask.cancel();
    locationTask = scope_.start(tickLocation(shared_from_this()));
}

Task<void> AppState::tickLocation(Self self) {
    if (co_await isCancelled()) co_return;
    self->scanLocation.setIfDifferent(std::string(scanLocations.front()));
    for (std::size_t index = 1;; ++index) {
        co_await sleepFor(std::chrono::milliseconds(700));
        if (co_await isCancelled()) co_return;
        self->scanLocation.setIfDifferent(std::string(scanLocations[index % scanLocations.size()]));
    }
}

}  // namespace morvane
