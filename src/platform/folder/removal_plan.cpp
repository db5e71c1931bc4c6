#include "platform/folder/removal_plan.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace morvane::folder {

namespace {

// The identity of the open folder of `place`, which has to be `expected` where that is known.
Result<FolderIdentity> folderOf(const RemovalRules& rules, const Place& place,
                                const FolderIdentity& expected, const std::filesystem::path& path) {
    const Result<ItemFacts> facts = lookAt(rules.calls(), place.folder.get(), "");
    if (!facts.ok()) return at(facts.failure(), path);
    if (expected.isKnown() && facts->identity != expected) return refusal(path);
    return facts->identity;
}

Result<PlannedTarget> admit(const RemovalRules& rules, const RemovalTarget& target,
                            std::size_t index) {
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
    return PlannedTarget{index, target.path, *clean, canonical, *folder, {}};
}

using PathOf = const std::string& (*)(const PlannedTarget&);

// The targets by their paths, as `pathOf` has them; of several with one path the first.
using Paths = std::unordered_map<std::string_view, PlannedTarget*>;

// The target whose path `path` lies below, the nearest one; null where there is none.
PlannedTarget* around(const Paths& paths, std::string_view path) {
    while (path.size() > 1) {
        const std::size_t slash = path.rfind('/');
        path = slash == 0 ? path.substr(0, 1) : path.substr(0, slash);
        if (const auto found = paths.find(path); found != paths.end()) return found->second;
    }
    return nullptr;
}

// Each target named once, with those that lie inside it, at whatever depth, under the outermost.
std::vector<PlannedTarget> nested(std::vector<PlannedTarget> targets, PathOf pathOf) {
    Paths paths;
    for (PlannedTarget& target : targets) paths.emplace(pathOf(target), &target);
    std::vector<PlannedTarget*> outermost;
    std::vector<PlannedTarget*> inner;
    for (PlannedTarget& target : targets) {
        PlannedTarget* const first = paths.at(pathOf(target));
        if (first != &target) {
            first->inside.insert(first->inside.end(), target.inside.begin(), target.inside.end());
            continue;
        }
        (around(paths, pathOf(target)) == nullptr ? outermost : inner).push_back(&target);
    }
    for (PlannedTarget* target : inner) {
        PlannedTarget* cover = around(paths, pathOf(*target));
        while (PlannedTarget* wider = around(paths, pathOf(*cover))) cover = wider;
        // Copied, since a path that is moved from would be looked for in vain.
        cover->inside.push_back(*target);
    }
    std::vector<PlannedTarget> kept;
    kept.reserve(outermost.size());
    for (PlannedTarget* target : outermost) kept.push_back(std::move(*target));
    return kept;
}

const std::string& textOf(const PlannedTarget& target) {
    return target.path.native();
}
const std::string& placeOf(const PlannedTarget& target) {
    return target.canonical;
}

}  // namespace

std::vector<PlannedTarget> outermost(std::vector<PlannedTarget> targets) {
    return nested(nested(std::move(targets), textOf), placeOf);
}

std::vector<PlannedTarget> planRemoval(const RemovalRules& rules,
                                       const std::vector<RemovalTarget>& targets,
                                       FirstFailure& failures) {
    std::vector<PlannedTarget> admitted;
    admitted.reserve(targets.size());
    for (std::size_t index = 0; index < targets.size(); ++index) {
        Result<PlannedTarget> one = admit(rules, targets[index], index);
        if (one.ok()) {
            admitted.push_back(*std::move(one));
        } else {
            failures.note(index, one.failure());
        }
    }
    return outermost(std::move(admitted));
}

Result<Place> findAgain(const RemovalRules& rules, const PlannedTarget& target) {
    Result<Place> place = rules.disk().locate(target.path);
    if (!place.ok()) return at(place.failure(), target.asked);
    const Result<FolderIdentity> folder = folderOf(rules, *place, target.folder, target.asked);
    if (!folder.ok()) return folder.failure();
    return place;
}

}  // namespace morvane::folder
