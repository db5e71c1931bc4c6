#include "platform/folder/trash_folder.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "model/path_text.h"
#include "platform/folder/free_name.h"

namespace morvane::folder {

namespace {

const std::string trashName = ".Trash";
constexpr int folderFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW;
// Others may take the names we find free; after so many lost races something else is wrong.
constexpr int mostTries = 200;
constexpr int largestNumber = 1 << 28;

}  // namespace

TrashFolder::TrashFolder(const RemovalRules& rules, const Host& host)
    : rules_(rules), home_(standardised(host.home)) {}

Result<std::string> TrashFolder::take(const Place& item, const std::filesystem::path& path) {
    if (!isOpened_) {
        problem_ = open();
        isOpened_ = true;
    }
    if (problem_) return *problem_;
    const Result<ItemFacts> folder = lookAt(rules_.calls(), item.folder.get(), "");
    if (!folder.ok()) return at(folder.failure(), path);
    if (folder->identity == identity_) return refusal(path);  // it lies in the Trash already
    if (!rules_.limits().onOneVolume(item.canonicalFolder,
                                     rules_.protectedFolders().canonicalTrash())) {
        return refusal(path, EXDEV);
    }
    const auto known = nextNumbers_.find(item.name);
    int number = known == nextNumbers_.end() ? 1 : known->second;
    for (int tries = 0; tries < mostTries && number <= largestNumber; ++tries) {
        const std::string name = number == 1 ? item.name : numberedName(item.name, number);
        if (rules_.calls().rename(item.folder.get(), item.name, folder_.get(), name) == 0) {
            nextNumbers_[item.name] = number + 1;
            return name;
        }
        if (errno != EEXIST) return renameFailure(errno, path);
        number = freeNumber(item.name, number + 1);
    }
    return failureFromErrno(EEXIST, path);
}

std::optional<Failure> TrashFolder::open() {
    const std::filesystem::path path = rules_.protectedFolders().trash();
    const Result<Descriptor> home = rules_.disk().openTarget(home_, O_PATH | O_DIRECTORY);
    if (!home.ok()) return at(home.failure(), path);
    const Result<ItemFacts> homeFacts = lookAt(rules_.calls(), home->get(), "");
    if (!homeFacts.ok()) return at(homeFacts.failure(), path);

    Result<ItemFacts> trash = openExisting(home->get());
    if (!trash.ok() && trash.failure().code == ENOENT) {
        if (rules_.calls().makeFolder(home->get(), trashName, 0700) != 0 && errno != EEXIST) {
            return failureFromErrno(errno, path);
        }
        trash = openExisting(home->get());
    }
    if (!trash.ok()) return at(trash.failure(), path);
    identity_ = trash->identity;
    return check(*trash, *homeFacts);
}

Result<ItemFacts> TrashFolder::openExisting(int home) {
    errno = 0;
    folder_ = Descriptor(rules_.calls().open(home, trashName, folderFlags));
    const int error = folder_ ? 0 : errno;
    // A file and a link stand where the Trash would have to.
    if (error == ENOTDIR || error == ELOOP) return refusal({}, ENOTDIR);
    if (!folder_) return failureFromErrno(error, {});
    return lookAt(rules_.calls(), folder_.get(), "");
}

std::optional<Failure> TrashFolder::check(const ItemFacts& trash, const ItemFacts& home) const {
    const std::filesystem::path& path = rules_.protectedFolders().trash();
    // In somebody else's Trash our items would be theirs to read and to keep.
    if (trash.owner != ::geteuid() && trash.owner != home.owner) return refusal(path, EPERM);
    if (trash.isMountRoot || trash.mount != home.mount) return refusal(path, EXDEV);
    return std::nullopt;
}

bool TrashFolder::isTaken(const std::string& name) {
    // Where that cannot be told the name counts as free: the rename is the judge.
    return lookAt(rules_.calls(), folder_.get(), name).ok();
}

// A number from `from` on whose name looks free; found in steps that double and then halve, so that
// a Trash that holds thousands of one name is not asked about each.
int TrashFolder::freeNumber(const std::string& name, int from) {
    if (from < 2) from = 2;
    if (!isTaken(numberedName(name, from))) return from;
    int taken = from;
    int step = 1;
    while (taken + step < largestNumber && isTaken(numberedName(name, taken + step))) {
        taken += step;
        step *= 2;
    }
    int free = taken + step;
    while (free - taken > 1) {
        const int middle = taken + (free - taken) / 2;
        (isTaken(numberedName(name, middle)) ? taken : free) = middle;
    }
    return free;
}

}  // namespace morvane::folder
