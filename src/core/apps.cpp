#include <memory>
#include <utility>

#include "core/app_state.h"
#include "core/ignore_rules.h"
#include "scanners/app_order.h"
#include "scanners/inventory.h"
#include "tasks/background.h"

namespace morvane {

std::vector<InstalledApp> AppState::visibleApps() const {
    return CleanupScanner::visibleApps(*apps, *appQuery, *appSort, now(), platform().region);
}

void AppState::scanApps(bool force) {
    if (*isScanningApps || (!force && isFresh(*appsScannedAt))) return;
    isScanningApps = true;
    appScanTask = scope_.start(runApps(shared_from_this(), apps->empty()));
}

Task<void> AppState::loadOneApp(Self self, std::filesystem::path bundle, bool includeContainers,
                                const CleanupScanner::LibraryNames& library, bool showProgress,
                                std::vector<InstalledApp>& collected) {
    const Instant now = self->now();
    std::optional<InstalledApp> app = co_await background(
        [self, now, &bundle, includeContainers, &library](const StopToken& token) {
            return CleanupScanner::loadApp(ScanContext{self->platform(), now, token}, bundle,
                                           includeContainers, library);
        });
    if (!app || co_await isCancelled()) co_return;
    app = keepingIgnored(std::move(*app), *self->ignoredFolders);
    if (!app) co_return;
    // A first scan fills the grid tile by tile; a refresh leaves the old grid until the end.
    if (showProgress) {
        self->apps.update([&](std::vector<InstalledApp>& shown) { shown.push_back(*app); });
    }
    collected.push_back(std::move(*app));
}

Task<void> AppState::runApps(Self self, bool showProgress) {
    const bool includeContainers = self->hasFullDiskAccess();
    const Instant now = self->now();
    const std::vector<std::filesystem::path> bundles =
        co_await background([self, now](const StopToken& token) {
            return CleanupScanner::listApplications(ScanContext{self->platform(), now, token});
        });
    const CleanupScanner::LibraryNames library =
        co_await background([self, now](const StopToken& token) {
            return CleanupScanner::libraryNames(ScanContext{self->platform(), now, token});
        });
    std::vector<InstalledApp> collected;
    {
        Group children(co_await currentContext());
        for (const std::filesystem::path& bundle : bundles) {
            children.start(
                loadOneApp(self, bundle, includeContainers, library, showProgress, collected));
        }
        co_await children.wait();
    }
    self->isScanningApps = false;
    if (co_await isCancelled()) co_return;
    {
        const AnimatedChange animated(self->store_);
        self->apps = withoutIgnored(std::move(collected), *self->ignoredFolders);
    }
    self->appsScannedAt = self->now();
}

}  // namespace morvane
