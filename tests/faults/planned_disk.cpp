#include "faults/planned_disk.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <system_error>

namespace morvane::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* home = "/Users/sam";
constexpr const char* settings = "/Users/sam/Library/Preferences";

std::string contentOf(const std::string& file) {
    return "the one and only bytes of " + file + "\n";
}

}  // namespace

PlannedDisk::PlannedDisk() {
    const std::string caches = std::string(home) + "/Library/Caches/";
    const std::string logs = std::string(home) + "/Library/Logs/";
    const std::string downloads = std::string(home) + "/Downloads/";
    plan(caches + "com.a.One", {"/data", "/sub/deep/data"});
    plan(caches + "com.a.Two", {"/data"});
    plan(logs + "old.log", {""});
    plan(logs + "app/old.log", {""});         // of the same name in the Trash
    plan(logs + "only/deep/lone.log", {""});  // alone in its folders
    plan(downloads + "Thing.dmg", {""});

    disk.text(std::string(home) + "/Documents/precious", contentOf("precious"));
    disk.text(caches + "com.apple.keep/data", contentOf("a cache of the system"));
    disk.text(logs + "app/new.log", contentOf("a log of today"), 0);
    disk.text(downloads + "letter.txt", contentOf("a letter"), 0);
    disk.link(caches + "com.a.One/sub/way out", std::string(home) + "/Documents");
    disk.makeFolder(settings);
    disk.writeHost();
    rest_ = rest();
}

void PlannedDisk::plan(const std::string& path, const std::vector<std::string>& files) {
    PlannedItem item{path, {}};
    for (const std::string& file : files) {
        disk.text(path + file, contentOf(path + file));
        item.files.push_back(path + file);
    }
    items_.push_back(item);
}

std::multiset<std::string> PlannedDisk::contentsOfTrash() const {
    std::multiset<std::string> contents;
    std::error_code failed;
    for (const auto& entry :
         fs::recursive_directory_iterator(disk.real(std::string(home) + "/.Trash"), failed)) {
        if (!entry.is_regular_file() || entry.is_symlink()) continue;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        contents.insert(std::move(bytes).str());
    }
    return contents;
}

Whereabouts PlannedDisk::whereabouts(const PlannedItem& item) const {
    const std::multiset<std::string> trash = contentsOfTrash();
    std::size_t old = 0;
    std::size_t trashed = 0;
    for (const std::string& file : item.files) {
        if (disk.has(file) && disk.content(file) != contentOf(file)) return Whereabouts::torn;
        if (disk.has(file)) ++old;
        trashed += trash.count(contentOf(file));
    }
    const std::size_t all = item.files.size();
    if (old == all && trashed == 0) return Whereabouts::oldPlace;
    // The old place is empty of the item itself too.
    if (old == 0 && trashed == all && !disk.has(item.path)) return Whereabouts::trash;
    if (old == 0 && trashed == 0) return Whereabouts::gone;
    return Whereabouts::torn;
}

std::set<std::string> PlannedDisk::itemsAt(Whereabouts place) const {
    std::set<std::string> paths;
    for (const PlannedItem& item : items_) {
        if (whereabouts(item) == place) paths.insert(item.path);
    }
    return paths;
}

std::set<std::string> PlannedDisk::filesLeft() const {
    std::set<std::string> files;
    for (const PlannedItem& item : items_) {
        for (const std::string& file : item.files) {
            if (disk.has(file)) files.insert(file);
        }
    }
    return files;
}

void PlannedDisk::expectOldPlaceOrTrash() const {
    EXPECT_EQ(itemsAt(Whereabouts::gone), std::set<std::string>());
    EXPECT_EQ(itemsAt(Whereabouts::torn), std::set<std::string>());
}

void PlannedDisk::expectOldPlaceOrGone() const {
    for (const std::string& file : filesLeft()) {
        EXPECT_EQ(disk.content(file), contentOf(file)) << file;
    }
    EXPECT_EQ(contentsOfTrash(), std::multiset<std::string>());
}

TreeSnapshot PlannedDisk::rest() const {
    TreeSnapshot tree = takeSnapshot(disk.real(""));
    for (const PlannedItem& item : items_) tree = without(std::move(tree), item.path);
    tree = without(std::move(tree), std::string(home) + "/.Trash");
    tree = without(std::move(tree), settings);
    tree = without(std::move(tree), std::string(home) + "/Library/Logs/only");
    for (auto& [path, item] : tree) {
        if (item.kind == 'd') item.modified = 0;
    }
    return tree;
}

void PlannedDisk::expectRestUntouched() const {
    EXPECT_EQ(differences(rest_, rest()), "");
}

}  // namespace morvane::test
