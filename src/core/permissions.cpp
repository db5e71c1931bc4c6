#include <chrono>
#include <utility>

#include "core/app_state.h"
#include "services/full_disk_access.h"
#include "tasks/answer.h"
#include "tasks/sleep.h"

namespace morvane {

namespace {

// Alert, sound and badge, as the notification centre counts them.
constexpr int notificationOptions = 7;
constexpr int mostWatchTurns = 300;

Answer<PermissionStatus> readNotificationStatus(const Platform& platform) {
    return Answer<PermissionStatus>([&platform](std::function<void(PermissionStatus)> answer) {
        platform.notifications.readStatus(std::move(answer));
    });
}

}  // namespace

void AppState::setFullDiskAccess(PermissionStatus status) {
    const bool isGrantedAnew =
        status == PermissionStatus::granted && *fullDiskAccess != PermissionStatus::granted;
    {
        const AnimatedChange animated(store_);
        fullDiskAccess.setIfDifferent(status);
    }
    if (!isGrantedAnew) return;
    // Results that were shaped by the lack of access are refreshed; the cleanup lists are not.
    refreshDisk();
    appsScannedAt = std::nullopt;
    if (*selection == SidebarItem::uninstaller) scanApps(false);
    filesScannedAt = std::nullopt;
    if (*selection == SidebarItem::large) scanFiles(false);
    storageScannedAt = std::nullopt;
    if (*selection == SidebarItem::storage) scanStorage(false);
}

void AppState::refreshPermissions() {
    setFullDiskAccess(probeFullDiskAccess(platform()));
    scope_.start(runRefreshPermissions(shared_from_this()));
}

Task<void> AppState::runRefreshPermissions(Self self) {
    const PermissionStatus status = co_await readNotificationStatus(self->platform());
    if (co_await isCancelled()) co_return;
    const AnimatedChange animated(self->store_);
    self->notificationStatus.setIfDifferent(status);
}

void AppState::requestNotifications() {
    scope_.start(runRequestNotifications(shared_from_this()));
}

Task<void> AppState::runRequestNotifications(Self self) {
    struct Asked {};
    co_await Answer<Asked>([self](std::function<void(Asked)> answer) {
        self->platform().notifications.requestAuthorization(
            notificationOptions, [told = std::move(answer)] { told(Asked{}); });
    });
    const PermissionStatus status = co_await readNotificationStatus(self->platform());
    if (co_await isCancelled()) co_return;
    const AnimatedChange animated(self->store_);
    self->notificationStatus = status;
    self->remindWhenReady = status == PermissionStatus::granted;
}

void AppState::watchForAccess() {
    platform().workspace.openURL(fullDiskAccessPane);
    accessWatchTask.cancel();
    accessWatchTask = scope_.start(runAccessWatch(shared_from_this()));
}

Task<void> AppState::runAccessWatch(Self self) {
    for (int turn = 0; turn < mostWatchTurns; ++turn) {
        if (!co_await sleepFor(std::chrono::seconds(1))) co_return;
        if (probeFullDiskAccess(self->platform()) != PermissionStatus::granted) continue;
        self->setFullDiskAccess(PermissionStatus::granted);
        self->platform().workspace.activate();
        co_return;
    }
}

}  // namespace morvane
