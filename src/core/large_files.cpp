#include "measure/large_files.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/app_state.h"
#include "core/ignore_rules.h"
#include "model/path_text.h"
#include "model/words.h"
#include "removal/discard.h"
#include "removal/uninstall.h"
#include "tasks/background.h"

namespace morvane {

namespace {

double megabytesOf(const std::vector<LargeFile>& files) {
    double sum = 0;
    for (const LargeFile& file : files) sum += static_cast<double>(file.bytes) / 1e6;
    return sum;
}

std::vector<std::filesystem::path> pathsOf(const std::vector<std::string>& texts) {
    std::vector<std::filesystem::path> paths;
    paths.reserve(texts.size());
    for (const std::string& text : texts) paths.push_back(pathFromText(text));
    return paths;
}

std::string nameOf(const LargeFile& file) {
    return nameText(file.url.filename());
}

std::string filesSummary(const std::vector<LargeFile>& gone) {
    const std::string what =
        gone.size() == 1 ? nameOf(gone.front()) : std::to_string(gone.size()) + " large files";
    return what + " · " + sizeText(megabytesOf(gone));
}

TrashResult resultOf(const std::vector<LargeFile>& selected, const std::vector<LargeFile>& gone,
                     Disposal disposal, const std::optional<Failure>& error) {
    if (gone.size() == selected.size()) {
        return FilesRemoved{std::ssize(gone), megabytesOf(gone)};
    }
    if (gone.empty()) {
        const std::string what = selected.size() == 1 ? nameOf(selected.front()) : "the files";
        return RemovalFailed{nothingMovedWords(what, disposal, error)};
    }
    return RemovalFailed{removalVerb(disposal) + " " + std::to_string(gone.size()) + " of " +
                         std::to_string(selected.size()) + " files. The rest couldn’t be removed."};
}

}  // namespace

std::vector<LargeFile> AppState::filteredFiles() const {
    return morvane::filteredFiles(*files, *fileMinMB, *fileMinMonths, *fileKind, now());
}

std::vector<LargeFile> AppState::selectedFiles() const {
    std::vector<LargeFile> selected = filteredFiles();
    std::erase_if(selected, [&](const LargeFile& file) {
        return !fileSelection->contains(pathText(file.url));
    });
    return selected;
}

void AppState::scanFiles(bool force) {
    if (*isScanningFiles || (!force && isFresh(*filesScannedAt))) return;
    isScanningFiles = true;
    fileScanTask = scope_.start(runFiles(shared_from_this(), files->empty()));
}

Task<void> AppState::scanFilesBelow(Self self, std::filesystem::path root, bool showProgress,
                                    std::vector<LargeFile>& collected) {
    const Instant now = self->now();
    std::vector<LargeFile> found = co_await background(
        [self, &root, now, ignored = pathsOf(*self->ignoredFolders)](const StopToken& token) {
            return scanLargeFiles(self->platform(), root, ignored, now, token);
        });
    if (showProgress && !found.empty() && !co_await isCancelled()) {
        self->files.update([&](std::vector<LargeFile>& shown) {
            shown.insert(shown.end(), found.begin(), found.end());
        });
    }
    collected.insert(collected.end(), std::make_move_iterator(found.begin()),
                     std::make_move_iterator(found.end()));
}

Task<void> AppState::runFiles(Self self, bool showProgress) {
    std::vector<std::filesystem::path> roots =
        co_await background([self](const StopToken&) { return largeFileRoots(self->platform()); });
    std::erase_if(roots, [&](const std::filesystem::path& root) {
        return isIgnored(root, *self->ignoredFolders);
    });
    std::vector<LargeFile> collected;
    {
        Group group(co_await currentContext());
        for (const std::filesystem::path& root : roots) {
            group.start(scanFilesBelow(self, root, showProgress, collected));
        }
        co_await group.wait();
    }
    if (!co_await isCancelled()) {
        // The list may have grown while the walk was on its way.
        std::erase_if(collected, [&](const LargeFile& file) {
            return isIgnored(file.url, *self->ignoredFolders);
        });
        std::set<std::string> paths;
        for (const LargeFile& file : collected) paths.insert(pathText(file.url));
        const AnimatedChange animated(self->store_);
        self->files = std::move(collected);
        self->fileSelection.update([&](std::set<std::string>& selected) {
            std::erase_if(selected, [&](const std::string& path) { return !paths.contains(path); });
        });
        self->filesScannedAt = self->now();
    }
    self->isScanningFiles = false;
}

void AppState::trashSelectedFiles() {
    std::vector<LargeFile> selected = selectedFiles();
    if (selected.empty() || *isTrashingFiles) return;
    isTrashingFiles = true;
    fileResult = std::nullopt;
    scope_.start(runTrashFiles(shared_from_this(), std::move(selected)));
}

Task<void> AppState::runTrashFiles(Self self, std::vector<LargeFile> selected) {
    const auto disposal = [&] {
        return *self->alwaysUseTrash ? Disposal::trash : Disposal::outright;
    };
    const RemovalReport report =
        co_await background([self, &selected, how = disposal()](const StopToken&) {
            std::vector<RemovalTarget> targets;
            targets.reserve(selected.size());
            for (const LargeFile& file : selected) targets.push_back(targetOf(file));
            return discard(self->needs_.remover, how, targets);
        });
    std::vector<LargeFile> gone;
    std::set<std::string> gonePaths;
    for (const LargeFile& file : selected) {
        if (!isGone(self->platform().files, file.url)) continue;
        gone.push_back(file);
        gonePaths.insert(pathText(file.url));
    }
    if (!gone.empty()) self->recordSweep(filesSummary(gone), report.trashed);
    {
        const AnimatedChange animated(self->store_);
        self->files.update([&](std::vector<LargeFile>& list) {
            std::erase_if(list, [&](const LargeFile& file) {
                return gonePaths.contains(pathText(file.url));
            });
        });
        self->fileSelection.update([&](std::set<std::string>& paths) {
            for (const std::string& path : gonePaths) paths.erase(path);
        });
    }
    self->fileResult = resultOf(selected, gone, disposal(), report.error);
    self->refreshFreeSpace();
    self->isTrashingFiles = false;
}

}  // namespace morvane
