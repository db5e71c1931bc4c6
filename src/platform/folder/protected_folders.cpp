#include "platform/folder/protected_folders.h"

#include <optional>

#include "model/path_text.h"

namespace morvane::folder {

namespace {

// What lies at `path`: links at its end are followed for the folders above, not for the Trash. The
// failure is empty where nothing is there.
struct Seen {
    std::optional<ItemFacts> facts;
    std::optional<Failure> failure;
};

Seen see(RemovalCalls& calls, const Result<Place>& place, const std::string& path) {
    Result<ItemFacts> facts = place.ok() ? lookAt(calls, place->folder.get(), place->name)
                                         : Result<ItemFacts>(place.failure());
    if (facts.ok()) return {*facts, {}};
    if (facts.failure().kind == Failure::Kind::notFound) return {};
    return {{}, at(facts.failure(), path)};
}

}  // namespace

Result<ProtectedFolders> ProtectedFolders::find(RemovalCalls& calls, const DiskRoot& disk,
                                                const std::filesystem::path& home) {
    const std::filesystem::path cleanHome = standardised(home);
    const Result<Place> homePlace = disk.locateTarget(cleanHome);
    if (!homePlace.ok() && homePlace.failure().kind != Failure::Kind::notFound) {
        return homePlace.failure();
    }
    ProtectedFolders found;
    found.trash_ = cleanHome / ".Trash";
    const std::string canonicalHome =
        homePlace.ok() ? homePlace->canonicalPath() : cleanHome.native();
    found.canonicalTrash_ = canonicalHome == "/" ? "/.Trash" : canonicalHome + "/.Trash";
    found.addPathAndAbove(found.trash_.native());
    found.addPathAndAbove(found.canonicalTrash_);

    for (const std::string& path : found.paths_) {
        const bool isTrash = path == found.trash_.native() || path == found.canonicalTrash_;
        const Seen seen = see(calls, isTrash ? disk.locate(path) : disk.locateTarget(path), path);
        if (seen.failure) return *seen.failure;
        if (seen.facts && seen.facts->isFolder) {
            found.identities_.emplace(seen.facts->identity.device, seen.facts->identity.inode);
        }
    }
    return found;
}

void ProtectedFolders::addPathAndAbove(std::string path) {
    while (path != "/") {
        paths_.insert(path);
        const std::size_t slash = path.rfind('/');
        path = slash == 0 ? "/" : path.substr(0, slash);
    }
    paths_.insert("/");
}

bool ProtectedFolders::covers(const ItemFacts& facts) const {
    return facts.isFolder && identities_.contains({facts.identity.device, facts.identity.inode});
}

}  // namespace morvane::folder
