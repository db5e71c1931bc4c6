#include "platform/folder/outright_deletion.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <utility>
#include <vector>

#include "platform/folder/folder_names.h"

namespace morvane::folder {

namespace {

// So many of the folders on the way down stay open; those above are opened again through "..".
constexpr std::size_t mostOpen = 24;
constexpr int listFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;

class OutrightDeletion {
public:
    OutrightDeletion(const RemovalRules& rules, const Place& place, const ItemFacts& item,
                     std::filesystem::path path)
        : rules_(rules),
          calls_(rules.calls()),
          place_(place),
          item_(item),
          path_(std::move(path)),
          canonical_(place.canonicalPath()),
          isLimited_(rules.limits().limitsBelow(canonical_)) {}

    std::optional<Failure> run() {
        if (!item_.isFolder) {
            if (calls_.unlink(place_.folder.get(), place_.name) != 0) note(errno, "");
            return first_;
        }
        enter(place_.folder.get(), place_.name);
        while (!levels_.empty()) {
            Level& level = levels_.back();
            if (level.folders.empty()) {
                if (!leave()) break;
                continue;
            }
            const std::string name = std::move(level.folders.back());
            level.folders.pop_back();
            enter(level.folder.get(), name);
        }
        return first_;
    }

private:
    // A folder that is being emptied.
    struct Level {
        std::string name;
        FolderIdentity identity;
        Descriptor folder;
        std::vector<std::string> folders;  // still to be entered
    };

    void note(Failure failure, const std::string& name) {
        if (first_) return;
        std::string path = path_.native() + below_;
        // The item itself is the one name that is not below anything.
        if (!levels_.empty()) path += "/" + name;
        first_ = at(std::move(failure), path);
    }
    void note(int code, const std::string& name) { note(failureFromErrno(code, {}), name); }

    // The canonical path of `name` in the folder at hand.
    [[nodiscard]] std::string canonicalOf(const std::string& name) const {
        return levels_.empty() ? canonical_ : canonical_ + below_ + "/" + name;
    }
    [[nodiscard]] bool isImmovable(const std::string& name) const {
        return isLimited_ && rules_.limits().isImmovable(canonicalOf(name));
    }

    void enter(int parent, const std::string& name) {
        if (isImmovable(name)) return note(EPERM, name);
        const bool unreadable = isLimited_ && rules_.limits().isUnreadable(canonicalOf(name));
        Descriptor folder(unreadable ? -1 : calls_.open(parent, name, listFlags));
        const int code = unreadable ? EPERM : errno;
        if (!folder) return passBy(parent, name, code);

        const Result<ItemFacts> facts = lookAt(calls_, folder.get(), "");
        if (!facts.ok()) return note(facts.failure(), name);
        if (levels_.empty() && facts->identity != item_.identity) return note(refusal({}), name);
        if (facts->isMountRoot || facts->mount != item_.mount) {
            return note(refusal({}, EXDEV), name);
        }
        if (rules_.protectedFolders().covers(*facts)) return note(refusal({}), name);

        const bool isTop = levels_.empty();
        levels_.push_back({name, facts->identity, std::move(folder), {}});
        if (!isTop) below_ += "/" + name;
        if (levels_.size() > mostOpen) levels_[levels_.size() - 1 - mostOpen].folder.close();
        empty();
    }

    // A folder that could not be opened: it may be empty, or none any more.
    void passBy(int parent, const std::string& name, int code) {
        if (code == ENOENT && !levels_.empty()) return;
        // It has become something else, which goes in its place unless it is what was asked for.
        if ((code == ENOTDIR || code == ELOOP) && !levels_.empty()) return unlink(parent, name);
        if ((code == EACCES || code == EPERM) && calls_.removeFolder(parent, name) == 0) return;
        note(code, name);
    }

    // Deletes what is no folder in the folder that was just entered.
    void empty() {
        Level& level = levels_.back();
        FolderNames names = readNames(calls_, level.folder.get());
        level.folders = std::move(names.folders);
        for (const std::string& name : names.others) unlink(level.folder.get(), name);
        if (names.error != 0 && !first_) {
            first_ = failureFromErrno(names.error, path_.native() + below_);
        }
    }

    void unlink(int folder, const std::string& name) {
        if (isImmovable(name)) return note(EPERM, name);
        if (calls_.unlink(folder, name) == 0 || errno == ENOENT) return;
        if (errno == EISDIR) {
            levels_.back().folders.push_back(name);  // it has become a folder
            return;
        }
        note(errno, name);
    }

    // Deletes the folder at hand, now empty, and goes on in the one above. False when there is no
    // certain way up: then everything ends here.
    bool leave() {
        const Level done = std::move(levels_.back());
        levels_.pop_back();
        int parent = place_.folder.get();
        if (!levels_.empty()) {
            below_.resize(below_.size() - done.name.size() - 1);
            if (!reopen(levels_.back(), done)) return false;
            parent = levels_.back().folder.get();
        }
        if (calls_.removeFolder(parent, done.name) == 0) {
            // The item itself is gone, so whatever failed on the way is of no account.
            if (levels_.empty()) first_.reset();
        } else if (errno != ENOENT) {
            note(errno, done.name);
        }
        return true;
    }

    // Opens `level` again where it was closed, from the folder below it.
    bool reopen(Level& level, const Level& below) {
        if (level.folder) return true;
        Descriptor folder(calls_.open(below.folder.get(), "..", O_PATH | O_DIRECTORY));
        if (!folder) {
            note(errno, below.name);
            return false;
        }
        const Result<ItemFacts> facts = lookAt(calls_, folder.get(), "");
        if (!facts.ok() || facts->identity != level.identity) {
            // The folder below was moved away, and its ".." is now somebody else's.
            note(facts.ok() ? refusal({}) : facts.failure(), below.name);
            return false;
        }
        level.folder = std::move(folder);
        return true;
    }

    const RemovalRules& rules_;
    RemovalCalls& calls_;
    const Place& place_;
    const ItemFacts& item_;
    std::filesystem::path path_;
    std::string canonical_;
    bool isLimited_;     // whether the host has something to say of the item or what is below it
    std::string below_;  // from the item to the folder at hand, each name with a slash before it
    std::vector<Level> levels_;
    std::optional<Failure> first_;
};

}  // namespace

std::optional<Failure> deleteOutright(const RemovalRules& rules, const Place& place,
                                      const ItemFacts& item, const std::filesystem::path& path) {
    return OutrightDeletion(rules, place, item, path).run();
}

}  // namespace morvane::folder
