#include "platform/folder/disk_remover.h"

#include <cerrno>

#include "model/path_text.h"
#include "platform/folder/made_folders.h"
#include "platform/folder/outright_deletion.h"
#include "platform/folder/removal_plan.h"
#include "platform/folder/removal_rules.h"
#include "platform/folder/trash_folder.h"

namespace morvane::folder {

namespace {

// The rename that puts an item back, into a folder that is there.
std::optional<Failure> moveInto(const RemovalRules& rules, const Place& item, int folder,
                                const std::filesystem::path& to) {
    const std::string name = to.filename().native();
    if (rules.calls().rename(item.folder.get(), item.name, folder, name) == 0) return std::nullopt;
    return renameFailure(errno, to);
}

// Tells how each target went, by `work`. One that did not go leaves those that were to go along
// with it to go by themselves; of these, what has gone meanwhile is no failure.
template <class Work>
void workOn(std::vector<PlannedTarget> targets, FirstFailure& failures, const Work& work,
            bool wereInside = false) {
    for (PlannedTarget& target : targets) {
        std::optional<Failure> failure = work(target);
        if (!failure) continue;
        if (!wereInside || failure->kind != Failure::Kind::notFound) {
            failures.note(target.index, *std::move(failure));
        }
        workOn(outermost(std::move(target.inside)), failures, work, true);
    }
}

}  // namespace

RemovalReport DiskRemover::recycle(const std::vector<RemovalTarget>& targets) {
    if (targets.empty()) return {};
    const std::shared_ptr<const Host> host = host_.current();
    const Result<RemovalRules> rules = RemovalRules::read(calls_, disk_, *host);
    if (!rules.ok()) return {{}, rules.failure()};

    RemovalReport report;
    FirstFailure failures;
    TrashFolder trash(*rules, *host);
    const auto take = [&](const PlannedTarget& target) -> std::optional<Failure> {
        const Result<Place> place = findAgain(*rules, target);
        if (!place.ok()) return at(place.failure(), target.asked);
        const Result<ItemFacts> item = rules->examine(*place, target.path);
        if (!item.ok()) return at(item.failure(), target.asked);
        const Result<std::string> name = trash.take(*place, target.asked);
        if (!name.ok()) return name.failure();
        report.trashed.emplace(target.asked, rules->protectedFolders().trash() / *name);
        return std::nullopt;
    };
    workOn(planRemoval(*rules, targets, failures), failures, take);
    report.error = failures.get();
    return report;
}

RemovalReport DiskRemover::removeOutright(const std::vector<RemovalTarget>& targets) {
    if (targets.empty()) return {};
    const Result<RemovalRules> rules = RemovalRules::read(calls_, disk_, *host_.current());
    if (!rules.ok()) return {{}, rules.failure()};

    FirstFailure failures;
    const auto remove = [&](const PlannedTarget& target) -> std::optional<Failure> {
        const Result<Place> place = findAgain(*rules, target);
        if (!place.ok()) return at(place.failure(), target.asked);
        const Result<ItemFacts> item = rules->examine(*place, target.path);
        if (!item.ok()) return at(item.failure(), target.asked);
        return deleteOutright(*rules, *place, *item, target.asked);
    };
    workOn(planRemoval(*rules, targets, failures), failures, remove);
    return {{}, failures.get()};
}

std::optional<Failure> DiskRemover::putBack(const std::filesystem::path& from,
                                            const std::filesystem::path& to) {
    const Result<RemovalRules> rules = RemovalRules::read(calls_, disk_, *host_.current());
    if (!rules.ok()) return rules.failure();
    const Result<std::filesystem::path> source = cleanPath(disk_, from);
    if (!source.ok()) return source.failure();
    // What stood at `to` may be gone with its folders, so its text has to do.
    const std::filesystem::path target = standardised(to);
    if (!to.is_absolute() || target == "/") return refusal(to);

    const Result<Place> place = disk_.locate(*source);
    if (!place.ok()) return at(place.failure(), from);
    const Result<ItemFacts> item = rules->examine(*place, *source);
    if (!item.ok()) return at(item.failure(), from);

    MadeFolders parent(calls_);
    if (std::optional<Failure> failure = parent.find(disk_, target.parent_path())) return failure;
    const HostLimits& limits = rules->limits();
    const std::string& canonicalParent = parent.canonicalPath();
    if (limits.holdsMount((std::filesystem::path(canonicalParent) / target.filename()).native()) ||
        !limits.onOneVolume(place->canonicalFolder, canonicalParent)) {
        return refusal(to, EXDEV);
    }
    std::optional<Failure> failure = parent.make(target.parent_path());
    if (!failure) failure = moveInto(*rules, *place, parent.folder(), target);
    if (failure) parent.takeBack();
    return failure;
}

}  // namespace morvane::folder
