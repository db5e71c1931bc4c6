#include "support/fake_remover.h"

#include <algorithm>
#include <cerrno>

#include "model/path_text.h"

namespace morvane::fakes {

namespace {

bool liesInAnother(const RemovalTarget& target, const std::vector<RemovalTarget>& targets) {
    return std::any_of(targets.begin(), targets.end(), [&](const RemovalTarget& other) {
        return other.path != target.path && isInside(target.path, other.path);
    });
}

}  // namespace

FakeRemover::FakeRemover(FakeFiles& files, std::filesystem::path trash)
    : files_(files), trash_(std::move(trash)) {}

std::optional<Failure> FakeRemover::obstacle(const std::filesystem::path& path) const {
    if (refusesEverything) return refusesEverything;
    if (immovable.contains(path)) return failureFromErrno(EPERM, path);
    if (files_.presence(path) == Presence::gone) return failureFromErrno(ENOENT, path);
    return std::nullopt;
}

std::filesystem::path FakeRemover::freePlace(const std::filesystem::path& path) const {
    std::filesystem::path place = trash_ / path.filename();
    for (int number = 2; files_.presence(place) != Presence::gone; ++number) {
        place = trash_ / (path.filename().native() + " " + std::to_string(number));
    }
    return place;
}

void FakeRemover::begin(const std::vector<RemovalTarget>& asked, std::vector<Paths>& record) {
    if (whileRemoving) whileRemoving();
    Paths& paths = record.emplace_back();
    for (const RemovalTarget& target : asked) paths.push_back(target.path);
    targets.insert(targets.end(), asked.begin(), asked.end());
}

void FakeRemover::keepFirst(std::optional<Failure>& first, const Failure& failure) const {
    if (!first && !reportsNoError) first = failure;
}

RemovalReport FakeRemover::recycle(const std::vector<RemovalTarget>& asked) {
    begin(asked, recycled);
    RemovalReport report;
    for (const RemovalTarget& target : asked) {
        if (liesInAnother(target, asked)) continue;
        if (const auto failure = obstacle(target.path)) {
            keepFirst(report.error, *failure);
            continue;
        }
        files_.addFolder(trash_);
        const std::filesystem::path place = freePlace(target.path);
        if (files_.move(target.path, place)) report.trashed[target.path] = place;
    }
    return report;
}

RemovalReport FakeRemover::removeOutright(const std::vector<RemovalTarget>& asked) {
    begin(asked, removed);
    RemovalReport report;
    for (const RemovalTarget& target : asked) {
        if (const auto failure = obstacle(target.path)) {
            keepFirst(report.error, *failure);
            continue;
        }
        files_.remove(target.path);
    }
    return report;
}

std::optional<Failure> FakeRemover::putBack(const std::filesystem::path& from,
                                            const std::filesystem::path& to) {
    putBacks.emplace_back(from, to);
    if (cannotPutBack.contains(to)) return failureFromErrno(EIO, to);
    if (files_.presence(to) != Presence::gone) return failureFromErrno(EEXIST, to);
    files_.addFolder(to.parent_path());
    if (!files_.move(from, to)) return failureFromErrno(ENOENT, from);
    return std::nullopt;
}

}  // namespace morvane::fakes
