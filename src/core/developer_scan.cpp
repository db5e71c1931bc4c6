#include <array>
#include <chrono>
#include <cstddef>
#include <utility>

#include "core/app_state.h"
#include "core/ignore_rules.h"
#include "scanners/dev_sections.h"
#include "tasks/background.h"
#include "tasks/sleep.h"

namespace morvane {

namespace {

using Found = std::array<std::vector<CleanupItem>, CleanupScanner::devScanners.size()>;

Task<void> runOne(const Platform& platform, Instant now, std::size_t index, Found& found) {
    found[index] = co_await background([&platform, now, index](const StopToken& token) {
        return CleanupScanner::devScanners[index].scan(ScanContext{platform, now, token});
    });
}

Task<std::vector<DevSection>> scanSections(const Platform& platform, Instant now) {
    Found found;
    Group scanners(co_await currentContext());
    for (std::size_t index = 0; index < found.size(); ++index) {
        scanners.start(runOne(platform, now, index, found));
    }
    co_await scanners.wait();
    co_return CleanupScanner::assembleDevSections(std::move(found));
}

}  // namespace

void AppState::scanDeveloper() {
    scope_.start(runDeveloper(shared_from_this()));
}

Task<void> AppState::runDeveloper(Self self) {
    if (*self->isScanningDeveloper) {
        // One begun elsewhere is at work, perhaps for a cancelled scan; its results are as good.
        while (*self->isScanningDeveloper && !co_await isCancelled()) {
            co_await sleepFor(std::chrono::milliseconds(200));
        }
        if (co_await isCancelled()) co_return;
        if (self->devSections->has_value()) self->finish(ScanCategory::developer);
        co_return;
    }
    self->isScanningDeveloper = true;
    std::vector<DevSection> found = co_await scanSections(self->platform(), self->now());
    self->isScanningDeveloper = false;
    if (co_await isCancelled()) co_return;
    {
        const AnimatedChange animated(self->store_);
        self->devSections = keepingIgnored(std::move(found), *self->ignoredFolders);
    }
    self->devSelection.setIfDifferent(safeIDs(self->devItems()));
    self->finish(ScanCategory::developer);
}

}  // namespace morvane
