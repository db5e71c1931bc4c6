#include "support/tree_snapshot.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace morvane::test {

namespace {

char kindOf(mode_t mode) {
    if (S_ISREG(mode)) return 'f';
    if (S_ISDIR(mode)) return 'd';
    if (S_ISLNK(mode)) return 'l';
    if (S_ISFIFO(mode)) return 'p';
    if (S_ISSOCK(mode)) return 's';
    return 'o';
}

void readFile(int folder, const std::string& name, TreeItem& item) {
    const int file = ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0) {
        item.error = errno;
        return;
    }
    std::uint64_t hash = 14695981039346656037ULL;
    std::array<unsigned char, 65536> buffer{};
    ssize_t count = 0;
    while ((count = ::read(file, buffer.data(), buffer.size())) > 0) {
        for (ssize_t i = 0; i < count; ++i) {
            hash = (hash ^ buffer[static_cast<std::size_t>(i)]) * 1099511628211ULL;
        }
    }
    if (count < 0) item.error = errno;
    item.content = hash;
    ::close(file);
}

void readLink(int folder, const std::string& name, TreeItem& item) {
    std::string target(4096, '\0');
    const ssize_t length = ::readlinkat(folder, name.c_str(), target.data(), target.size());
    if (length < 0) {
        item.error = errno;
        return;
    }
    target.resize(static_cast<std::size_t>(length));
    item.linkTarget = std::move(target);
}

struct Snapshot {
    TreeSnapshot tree;
    std::map<std::pair<dev_t, ino_t>, std::string> seen;

    // Takes down the item `name` of `folder`, and what lies below it.
    void take(int folder, const std::string& name, const std::string& path) {
        TreeItem& item = tree[path];
        struct stat status{};
        if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
            item.error = errno;
            return;
        }
        item.kind = kindOf(status.st_mode);
        item.mode = status.st_mode;
        item.owner = status.st_uid;
        item.inode = status.st_ino;
        item.modified =
            std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
        if (item.kind == 'f') {
            item.size = status.st_size;
            readFile(folder, name, item);
        }
        if (item.kind == 'l') readLink(folder, name, item);
        if (item.kind == 'd') {
            takeFolder(folder, name, path);
        } else if (status.st_nlink > 1) {
            const auto [first, isNew] = seen.try_emplace({status.st_dev, status.st_ino}, path);
            if (!isNew) item.hardLinkOf = first->second;
        }
    }

    void takeFolder(int parent, const std::string& name, const std::string& path) {
        const int folder =
            ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        DIR* const listing = folder < 0 ? nullptr : ::fdopendir(folder);
        if (listing == nullptr) {
            tree[path].error = errno;
            return;
        }
        std::vector<std::string> names;
        errno = 0;
        while (const dirent* const entry = ::readdir(listing)) {  // NOLINT(concurrency-mt-unsafe)
            const std::string found = entry->d_name;
            if (found != "." && found != "..") names.push_back(found);
        }
        if (errno != 0) tree[path].error = errno;
        std::ranges::sort(names);
        for (const std::string& found : names) take(folder, found, path + "/" + found);
        ::closedir(listing);
    }
};

std::string difference(const TreeItem& before, const TreeItem& after) {
    if (before.kind != after.kind) return "is another kind of item";
    if (before.error != after.error) return "can be looked at differently";
    if (before.inode != after.inode) return "is another item of the same name";
    if (before.mode != after.mode) return "has other permissions";
    if (before.owner != after.owner) return "has another owner";
    if (before.linkTarget != after.linkTarget) return "leads to " + after.linkTarget;
    if (before.size != after.size) return "has another length";
    if (before.content != after.content) return "has other bytes";
    if (before.hardLinkOf != after.hardLinkOf) return "shares its file with others";
    return "was modified at another time";
}

}  // namespace

TreeSnapshot takeSnapshot(const std::filesystem::path& root) {
    Snapshot snapshot;
    snapshot.take(AT_FDCWD, root.native(), "");
    return std::move(snapshot.tree);
}

TreeSnapshot without(TreeSnapshot tree, const std::string& below) {
    std::erase_if(tree, [&](const auto& item) {
        return item.first == below || item.first.starts_with(below + "/");
    });
    return tree;
}

std::string differences(const TreeSnapshot& before, const TreeSnapshot& after) {
    std::string text;
    for (const auto& [path, item] : before) {
        const auto now = after.find(path);
        if (now == after.end()) {
            text += "\"" + path + "\" is gone\n";
        } else if (now->second != item) {
            text += "\"" + path + "\" " + difference(item, now->second) + "\n";
        }
    }
    for (const auto& [path, item] : after) {
        if (!before.contains(path)) text += "\"" + path + "\" has come\n";
    }
    return text;
}

}  // namespace morvane::test
