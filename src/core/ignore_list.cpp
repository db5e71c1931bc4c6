#include <algorithm>
#include <iterator>
#include <utility>

#include "core/app_state.h"
#include "core/ignore_rules.h"
#include "model/path_text.h"
#include "tasks/answer.h"

namespace morvane {

namespace {

std::set<std::string> among(const std::set<std::string>& ids, const std::set<std::string>& known) {
    std::set<std::string> kept;
    std::set_intersection(ids.begin(), ids.end(), known.begin(), known.end(),
                          std::inserter(kept, kept.end()));
    return kept;
}

// `folders` with `chosen` added: what is covered already is skipped, what lies inside a new folder
// gives way to it.
std::vector<std::string> adding(std::vector<std::string> folders,
                                const std::vector<std::filesystem::path>& chosen) {
    for (const std::filesystem::path& url : chosen) {
        const std::string path = pathText(standardised(url));
        if (isIgnored(url, folders)) continue;
        std::erase_if(folders, [&](const std::string& folder) {
            return isIgnored(pathFromText(folder), {path});
        });
        folders.push_back(path);
    }
    return folders;
}

}  // namespace

void AppState::applyIgnoreList(const std::vector<std::string>& folders) {
    const AnimatedChange animated(store_);
    for (auto* list : {&crumbItems, &downloadItems, &leftoverItems, &backupItems}) {
        *list = keepingIgnored(list->get(), folders);
    }
    if (devSections->has_value()) devSections = keepingIgnored(**devSections, folders);
    apps = withoutIgnored(*apps, folders);
    files.update([&](std::vector<LargeFile>& list) {
        std::erase_if(list, [&](const LargeFile& file) { return isIgnored(file.url, folders); });
    });
}

void AppState::setIgnoredFolders(std::vector<std::string> folders) {
    const std::vector<std::string> former = *ignoredFolders;
    ignoredFolders = std::move(folders);
    ignoredFoldersChanged(former);
}

void AppState::ignoredFoldersChanged(const std::vector<std::string>& former) {
    const std::vector<std::string>& folders = *ignoredFolders;
    const bool onlyAdditions = std::all_of(former.begin(), former.end(), [&](const auto& entry) {
        return std::find(folders.begin(), folders.end(), entry) != folders.end();
    });
    if (!onlyAdditions) {
        // What the removed entry held comes back with the next scan, not by itself.
        appsScannedAt = std::nullopt;
        filesScannedAt = std::nullopt;
        return;
    }
    applyIgnoreList(folders);
    std::set<std::string> known;
    for (const CleanupItem* item : sweepItemsInPlace()) known.insert(item->id);
    for (const CleanupItem& item : devItems()) known.insert(item.id);
    sweepSelection = among(*sweepSelection, known);
    devSelection = among(*devSelection, known);
    std::set<std::string> paths;
    for (const LargeFile& file : *files) paths.insert(pathText(file.url));
    fileSelection = among(*fileSelection, paths);
}

void AppState::addIgnoredFolders() {
    const Workspace::FolderPanel panel{
        "Ignore", "Morvane won’t look inside these folders or suggest anything from them.",
        platform().home};
    scope_.start([](Self self, Workspace::FolderPanel shown) -> Task<void> {
        using Choice = std::optional<std::vector<std::filesystem::path>>;
        const Choice chosen = co_await Answer<Choice>([&](auto answer) {
            self->platform().workspace.chooseFolders(shown, std::move(answer));
        });
        if (!chosen || co_await isCancelled()) co_return;
        std::vector<std::string> folders = adding(*self->ignoredFolders, *chosen);
        if (folders != *self->ignoredFolders) self->setIgnoredFolders(std::move(folders));
    }(shared_from_this(), panel));
}

void AppState::removeIgnoredFolder(const std::string& path) {
    std::vector<std::string> folders = *ignoredFolders;
    std::erase(folders, path);
    setIgnoredFolders(std::move(folders));
}

}  // namespace morvane
