#include "platform/folder/made_folders.h"

#include <cerrno>
#include <fcntl.h>
#include <ranges>

namespace morvane::folder {

namespace {

constexpr int folderFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW;

}  // namespace

std::optional<Failure> MadeFolders::find(const DiskRoot& disk, const std::filesystem::path& path) {
    std::filesystem::path there = path;
    while (true) {
        const Result<Place> place = disk.locateTarget(there);
        if (place.ok()) {
            folder_ = Descriptor(calls_.open(place->folder.get(), place->name, folderFlags));
            if (!folder_) return failureFromErrno(errno, there);
            canonical_ = place->canonicalPath();
            break;
        }
        if (place.failure().code != ENOENT || there == "/") return place.failure();
        missing_.push_back(there.filename().native());
        there = there.parent_path();
    }
    for (const std::string& name : std::views::reverse(missing_)) {
        canonical_ += canonical_ == "/" ? name : "/" + name;
    }
    return std::nullopt;
}

std::optional<Failure> MadeFolders::make(const std::filesystem::path& path) {
    while (!missing_.empty()) {
        const std::string& name = missing_.back();
        const Result<ItemFacts> parent = lookAt(calls_, folder_.get(), "");
        if (!parent.ok()) return at(parent.failure(), path);
        if (calls_.makeFolder(folder_.get(), name, 0777) == 0) {
            made_.push_back({name, parent->identity});
        } else if (errno != EEXIST) {
            return failureFromErrno(errno, path);
        }
        Descriptor next(calls_.open(folder_.get(), name, folderFlags));
        if (!next) return failureFromErrno(errno, path);
        if (!made_.empty()) made_.back().isEntered = true;
        folder_ = std::move(next);
        missing_.pop_back();
    }
    return std::nullopt;
}

void MadeFolders::takeBack() {
    while (!made_.empty()) {
        const Made made = std::move(made_.back());
        made_.pop_back();
        if (made.isEntered) {
            Descriptor parent(calls_.open(folder_.get(), "..", O_PATH | O_DIRECTORY));
            if (!parent) return;
            folder_ = std::move(parent);
        }
        const Result<ItemFacts> facts = lookAt(calls_, folder_.get(), "");
        if (!facts.ok() || facts->identity != made.parent) return;
        if (calls_.removeFolder(folder_.get(), made.name) != 0) return;
    }
}

}  // namespace morvane::folder
