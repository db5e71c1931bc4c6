#include <set>
#include <utility>

#include "core/app_state.h"
#include "measure/disk_usage.h"
#include "measure/storage_scanner.h"
#include "measure/storage_tree.h"
#include "tasks/background.h"

namespace morvane {

StorageNode AppState::storageRoot() const {
    return StorageScanner::storageRoot(*disk, *storageFolders, *storageSystemBytes,
                                       *isScanningStorage);
}

std::vector<StorageNode> AppState::storageChain() const {
    const StorageNode root = storageRoot();
    std::vector<StorageNode> chain;
    for (const StorageNode* node : StorageScanner::storageChain(root, *storagePath)) {
        chain.push_back(*node);
    }
    return chain;
}

void AppState::scanStorage(bool force) {
    if (*isScanningStorage || (!force && isFresh(*storageScannedAt))) return;
    refreshFreeSpace();
    isScanningStorage = true;
    storageTask = scope_.start(runStorage(shared_from_this(), storageFolders->empty()));
}

Task<void> AppState::scanStorageRoot(Self self, std::filesystem::path root,
                                     const std::set<std::string>& skipped, bool showProgress,
                                     std::vector<StorageNode>& found) {
    StorageNode node = co_await background([self, &root, &skipped](const StopToken& token) {
        return StorageScanner::scanRoot(self->platform(), root, skipped, token);
    });
    if (showProgress && !co_await isCancelled()) {
        const AnimatedChange animated(self->store_);
        self->storageFolders.update(
            [&](std::vector<StorageNode>& shown) { shown.push_back(node); });
    }
    found.push_back(std::move(node));
}

Task<void> AppState::runStorage(Self self, bool showProgress) {
    std::set<std::string> skipped;
    if (!self->hasFullDiskAccess()) {
        skipped = StorageScanner::protectedFolders(self->platform().home);
    }
    const std::vector<std::filesystem::path> roots = co_await background(
        [self](const StopToken&) { return StorageScanner::roots(self->platform()); });
    std::optional<std::int64_t> system;
    std::vector<StorageNode> found;
    {
        Group group(co_await currentContext());
        group.start([](Self state, std::optional<std::int64_t>& bytes) -> Task<void> {
            bytes = co_await background([state](const StopToken& token) {
                return measureSystemBytes(state->platform(), token);
            });
        }(self, system));
        for (const std::filesystem::path& root : roots) {
            group.start(scanStorageRoot(self, root, skipped, showProgress, found));
        }
        co_await group.wait();
    }
    if (co_await isCancelled()) {
        self->isScanningStorage = false;
        co_return;
    }
    self->refreshFreeSpace();
    {
        const AnimatedChange animated(self->store_);
        self->storageFolders = std::move(found);
        self->storageSystemBytes = system ? system : self->disk->systemBytes;
        self->storageSkippedProtected = !skipped.empty();
        self->isScanningStorage = false;
    }
    self->storageScannedAt = self->now();
}

}  // namespace morvane
