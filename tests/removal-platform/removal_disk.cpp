#include "removal_disk.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace morvane::folder {

namespace fs = std::filesystem;

namespace {

// Something of everything, with times long past so that a touch shows.
void makeCanary(const fs::path& top) {
    fs::create_directories(top / "full/deeper");
    fs::create_directories(top / "empty");
    std::ofstream(top / "letter.txt") << "dear reader";
    std::ofstream(top / "full/deeper/photo.raw") << std::string(5'000, 'p');
    std::ofstream(top / "full/\xff\xfe name") << "no text";
    fs::create_hard_link(top / "letter.txt", top / "full/same letter.txt");
    fs::create_symlink("letter.txt", top / "link");
    fs::create_symlink("/Canary/full", top / "absolute link");
    fs::create_symlink("nowhere", top / "dangling");
    ::mkfifo((top / "pipe").c_str(), 0600);
    fs::permissions(top / "letter.txt", fs::perms::owner_read);
    const timespec past[2] = {{1'500'000'000, 5}, {1'500'000'000, 7}};
    for (const char* path :
         {"letter.txt", "full/deeper/photo.raw", "full/deeper", "full", "empty"}) {
        ::utimensat(AT_FDCWD, (top / path).c_str(), past, 0);
    }
}

// Removes a tree of any depth, whatever a test left there.
void removeTree(const fs::path& top) {
    std::error_code error;
    fs::remove_all(top, error);
    if (!error) return;
    const std::string command = "rm -rf -- '" + top.native() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);  // NOLINT(concurrency-mt-unsafe)
}

// Where disks are made: TMPDIR, or else memory where the machine has it, since these tests make
// and remove tens of thousands of items.
fs::path workFolder() {
    const bool isChosen = std::getenv("TMPDIR") != nullptr;  // NOLINT(concurrency-mt-unsafe)
    if (!isChosen && ::access("/dev/shm", W_OK | X_OK) == 0) return "/dev/shm";
    return fs::temp_directory_path();
}

}  // namespace

std::size_t openDescriptors() {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

RemovalDisk::RemovalDisk() {
    std::string pattern = (workFolder() / "removal-XXXXXX").native();
    base_ = ::mkdtemp(pattern.data());
    fs::create_directories(base_ / "root/Users/sam");
    makeCanary(base_ / "root/Canary");
    makeCanary(base_ / "root/Users/sam/Documents");
    makeCanary(base_ / "outside");
    canary_ = test::takeSnapshot(place("/Canary"));
    documents_ = test::takeSnapshot(place("/Users/sam/Documents"));
    outside_ = test::takeSnapshot(base_ / "outside");
    host.home = "/Users/sam";
}

RemovalDisk::~RemovalDisk() {
    removeTree(base_);
}

fs::path RemovalDisk::place(const std::string& path) const {
    return base_.native() + "/root" + path;
}

void RemovalDisk::file(const std::string& path, const std::string& bytes) {
    fs::create_directories(place(path).parent_path());
    std::ofstream(place(path), std::ios::binary) << bytes;
}

void RemovalDisk::folder(const std::string& path) {
    fs::create_directories(place(path));
}

void RemovalDisk::link(const std::string& path, const std::string& target) {
    fs::create_directories(place(path).parent_path());
    fs::create_symlink(target, place(path));
}

void RemovalDisk::hardLink(const std::string& path, const std::string& existing) {
    fs::create_directories(place(path).parent_path());
    fs::create_hard_link(place(existing), place(path));
}

bool RemovalDisk::stands(const std::string& path) const {
    return inode(path) != 0;
}

char RemovalDisk::kind(const std::string& path) const {
    struct stat status{};
    if (::lstat(place(path).c_str(), &status) != 0) return '?';
    return S_ISLNK(status.st_mode) ? 'l' : S_ISDIR(status.st_mode) ? 'd' : 'f';
}

ino_t RemovalDisk::inode(const std::string& path) const {
    struct stat status{};
    return ::lstat(place(path).c_str(), &status) == 0 ? status.st_ino : 0;
}

std::string RemovalDisk::bytes(const std::string& path) const {
    std::ifstream stream(place(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> RemovalDisk::names(const std::string& folder) const {
    std::vector<std::string> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(place(folder), error)) {
        found.push_back(entry.path().filename().native());
    }
    std::ranges::sort(found);
    return found;
}

FolderIdentity RemovalDisk::identity(const std::string& folder) const {
    struct stat status{};
    EXPECT_EQ(::stat(place(folder).c_str(), &status), 0) << folder;
    return {status.st_dev, status.st_ino};
}

RemovalTarget RemovalDisk::plan(const std::string& path) {
    EXPECT_TRUE(stands(path)) << path;
    planned_[path] = inode(path);
    return {path, identity(fs::path(path).parent_path().native())};
}

int RemovalDisk::countInTrash(ino_t item) const {
    const fs::path trash = place("/Users/sam/.Trash");
    if (!fs::is_directory(fs::symlink_status(trash))) return 0;
    int count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(trash)) {
        struct stat status{};
        if (::lstat(entry.path().c_str(), &status) == 0 && status.st_ino == item) ++count;
    }
    return count;
}

void RemovalDisk::expectOldPlaceOrTrash() const {
    for (const auto& [path, item] : planned_) {
        const int old = inode(path) == item ? 1 : 0;
        EXPECT_EQ(old + countInTrash(item), 1)
            << path << (old == 1 ? " is in both" : " is in neither");
    }
}

void RemovalDisk::expectOldPlaceOrGone() const {
    for (const auto& [path, item] : planned_) {
        EXPECT_TRUE(inode(path) == item || inode(path) == 0) << path;
        EXPECT_EQ(countInTrash(item), 0) << path;
    }
}

void RemovalDisk::expectCanaryUntouched() const {
    EXPECT_EQ(test::differences(canary_, test::takeSnapshot(place("/Canary"))), "");
    EXPECT_EQ(test::differences(documents_, test::takeSnapshot(place("/Users/sam/Documents"))), "");
    EXPECT_EQ(test::differences(outside_, test::takeSnapshot(base_ / "outside")), "");
}

DiskRemover& RemovalDisk::remover() {
    if (!remover_) {
        Result<DiskRoot> root = DiskRoot::open(base_ / "root");
        EXPECT_TRUE(root.ok());
        root_.emplace(*std::move(root));
        answers_.emplace(host);
        remover_.emplace(*root_, *answers_, calls);
    }
    return *remover_;
}

RemovalTest::RemovalTest() : descriptors_(openDescriptors()) {}

RemovalTest::~RemovalTest() {
    // The disk's top is held open by the remover.
    EXPECT_EQ(openDescriptors(), descriptors_ + (disk.hasRemover() ? 1U : 0U));
    disk.expectCanaryUntouched();
    if (deletes) {
        disk.expectOldPlaceOrGone();
    } else {
        disk.expectOldPlaceOrTrash();
    }
}

}  // namespace morvane::folder
