#include <algorithm>
#include <utility>

#include "core/app_state.h"
#include "measure/disk_usage.h"
#include "tasks/background.h"

namespace morvane {

namespace {

constexpr DiskCategory everywhere[] = {DiskCategory::apps, DiskCategory::media,
                                       DiskCategory::documents, DiskCategory::developer};
constexpr DiskCategory withoutAccess[] = {DiskCategory::apps, DiskCategory::developer};

Task<void> measureSystem(const Platform& platform, std::optional<std::int64_t>& bytes) {
    bytes = co_await background(
        [&platform](const StopToken& token) { return measureSystemBytes(platform, token); });
}

}  // namespace

std::vector<DiskUsage::Slice> AppState::slices() const {
    return morvane::slices(*disk);
}

void AppState::refreshFreeSpace() {
    const std::optional<DiskUsage> figures = quickMeasure(platform().volume);
    if (!figures) return;
    DiskUsage measured = withVolumeFigures(*disk, *figures);
    const AnimatedChange animated(store_);
    disk.setIfDifferent(std::move(measured));
}

void AppState::refreshDisk() {
    refreshFreeSpace();
    diskTask.cancel();
    const bool hasAccess = hasFullDiskAccess();
    DiskUsage working = *disk;
    working.measured.clear();
    working.systemBytes.reset();
    working.isComplete = false;
    working.skipped.clear();
    std::vector<DiskCategory> walked;
    if (hasAccess) {
        walked.assign(std::begin(everywhere), std::end(everywhere));
    } else {
        walked.assign(std::begin(withoutAccess), std::end(withoutAccess));
        working.skipped = {DiskCategory::media, DiskCategory::documents};
        disk = working;
    }
    // With access the former figures stay on view until the whole run has finished.
    const bool showProgress = !hasAccess;
    diskTask = scope_.start(
        runDisk(shared_from_this(), showProgress, std::move(walked), std::move(working)));
}

Task<void> AppState::measureCategory(Self self, DiskCategory category, bool showProgress,
                                     DiskUsage& working) {
    const std::int64_t bytes = co_await background([self, category](const StopToken& token) {
        std::int64_t sum = 0;
        for (const auto& folder : categoryFolders(category, self->platform().home)) {
            sum += self->platform().files.treeSize(folder, false, token).bytes;
        }
        return sum;
    });
    working.measured[category] = bytes;
    if (!showProgress || co_await isCancelled()) co_return;
    const AnimatedChange animated(self->store_);
    self->disk.update([&](DiskUsage& shown) { shown.measured[category] = bytes; });
}

Task<void> AppState::runDisk(Self self, bool showProgress, std::vector<DiskCategory> walked,
                             DiskUsage working) {
    std::optional<std::int64_t> system;
    {
        Group group(co_await currentContext());
        group.start(measureSystem(self->platform(), system));
        for (DiskCategory category : walked) {
            group.start(measureCategory(self, category, showProgress, working));
        }
        co_await group.wait();
    }
    if (co_await isCancelled()) co_return;
    working.systemBytes = system;
    working.isComplete = true;
    if (const auto figures = quickMeasure(self->platform().volume)) {
        working = withVolumeFigures(std::move(working), *figures);
    }
    {
        const AnimatedChange animated(self->store_);
        self->disk = working;
    }
    self->saveDiskUsage(working);
}

void AppState::saveDiskUsage(const DiskUsage& usage) {
    if (!usage.isComplete || store_.isClosed()) return;
    needs_.defaults.setData("lastDiskUsage", encodeDiskUsage(usage));
}

}  // namespace morvane
