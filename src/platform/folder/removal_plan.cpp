#include "platform/folder/removal_plan.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace morvane::folder {

namespace {

// A target that may go, with where it lies ("canonical": no link in it).
struct Admitted {
    PlannedTarget target;
    std::string canonical;
};

// The identity of the open folder of `place`, which has to be `expected` where that is known.
Result<FolderIdentity> folderOf(const RemovalRules& rules, const Place& place,
                                const FolderIdentity& expected, const std::filesystem::path& path) {
    const Result<ItemFacts> facts = lookAt(rules.calls(), place.folder.get(), "");
    if (!facts.ok()) return at(facts.failure(), path);
    if (expected.isKnown() && facts->identity != expected) return refusal(path);
    return facts->identity;
}

Result<Admitted> admit(const RemovalRules& rules, const RemovalTarget& target, std::size_t index) {
    const Result<std::filesystem::path> clean = cleanPath(rules.disk(), target.path);
    if (!clean.ok()) return at(clean.failure(), target.path);
    const ProtectedFolders& folders = rules.protectedFolders();
    if (folders.covers(clean->native())) return refusal(target.path);
    const Result<Place> place = rules.disk().locate(*clean);
    if (!place.ok()) return at(place.failure(), target.path);
    const std::string canonical = place->canonicalPath();
    if (folders.covers(canonical)) return refusal(target.path);
    const Result<FolderIdentity> folder = folderOf(rules, *place, target.folder, target.path);
    if (!folder.ok()) return folder.failure();
    const Result<ItemFacts> item = lookAt(rules.calls(), place->folder.get(), place->name);
    if (!item.ok()) return at(item.failure(), target.path);
    if (folders.covers(*item)) return refusal(target.path);
    return Admitted{{index, target.path, *clean, *folder}, canonical};
}

// The paths of a list, each with the first target that has it.
using Paths = std::unordered_map<std::string_view, std::size_t>;

// Whether `path` lies below one of `paths`, or is one that an earlier target has.
bool goesAlong(const Paths& paths, std::string_view path, std::size_t index) {
    if (paths.at(path) != index) return true;
    while (path.size() > 1) {
        const std::size_t slash = path.rfind('/');
        path = slash == 0 ? path.substr(0, 1) : path.substr(0, slash);
        if (paths.contains(path)) return true;
    }
    return false;
}

}  // namespace

std::vector<PlannedTarget> planRemoval(const RemovalRules& rules,
                                       const std::vector<RemovalTarget>& targets,
                                       FirstFailure& failures) {
    std::vector<Admitted> admitted;
    admitted.reserve(targets.size());
    for (std::size_t index = 0; index < targets.size(); ++index) {
        Result<Admitted> one = admit(rules, targets[index], index);
        if (one.ok()) {
            admitted.push_back(*std::move(one));
        } else {
            failures.note(index, one.failure());
        }
    }
    Paths byText;
    Paths byPlace;
    for (const Admitted& one : admitted) {
        byText.emplace(one.target.path.native(), one.target.index);
        byPlace.emplace(one.canonical, one.target.index);
    }
    std::vector<PlannedTarget> planned;
    for (const Admitted& one : admitted) {
        const std::size_t index = one.target.index;
        if (goesAlong(byText, one.target.path.native(), index)) continue;
        if (goesAlong(byPlace, one.canonical, index)) continue;
        planned.push_back(one.target);
    }
    return planned;
}

Result<Place> findAgain(const RemovalRules& rules, const PlannedTarget& target) {
    Result<Place> place = rules.disk().locate(target.path);
    if (!place.ok()) return at(place.failure(), target.asked);
    const Result<FolderIdentity> folder = folderOf(rules, *place, target.folder, target.asked);
    if (!folder.ok()) return folder.failure();
    return place;
}

}  // namespace morvane::folder
