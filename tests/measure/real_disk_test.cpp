// The two scans on real files, where a walk runs on several threads at once.

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include "measure/large_files.h"
#include "measure/storage_scanner.h"
#include "platform/folder/disk_file_system.h"
#include "support/fake_system.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class MeasuringRealFiles : public testing::Test {
protected:
    MeasuringRealFiles() {
        // In memory where the machine offers that: a busy disk takes seconds for so many files.
        const fs::path memory = "/dev/shm";
        const fs::path place = fs::is_directory(memory) ? memory : fs::temp_directory_path();
        std::string pattern = (place / "morvane-measure-XXXXXX").native();
        root_ = ::mkdtemp(pattern.data());
        fs::create_directories(root_ / "Users/sam");
        disk_.emplace(*folder::DiskRoot::open(root_));
    }
    ~MeasuringRealFiles() override { fs::remove_all(root_); }

    fs::path here(const fs::path& path) const { return root_ / path.relative_path(); }

    // A file of `bytes`, with all its blocks unless it is to be sparse.
    void addFile(const fs::path& path, std::int64_t bytes, bool isSparse = false) {
        fs::create_directories(here(path).parent_path());
        const int file = ::open(here(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
        ASSERT_GE(file, 0);
        if (bytes > 0) {
            ASSERT_EQ(isSparse ? ::ftruncate(file, bytes) : ::posix_fallocate(file, 0, bytes), 0);
        }
        ::close(file);
    }

    Platform platform(const FileSystem& files) {
        return {files,
                mac_.processes,
                mac_.workspace,
                mac_.metadata,
                mac_.notifications,
                mac_.volume,
                {},
                {},
                "/Users/sam"};
    }

    fs::path root_;
    std::optional<folder::DiskRoot> disk_;
    fakes::FakeSystem mac_;
    folder::Host host_;
};

// The tree as the definitions have it: everything is listed first, and folded folder by folder.
StorageNode listed(const fs::path& place, const fs::path& url) {
    std::vector<StorageNode> children;
    for (const fs::directory_entry& entry : fs::directory_iterator(place)) {
        const fs::path name = entry.path().filename();
        if (entry.is_symlink()) continue;
        if (entry.is_directory()) {
            children.push_back(listed(entry.path(), url / name));
            continue;
        }
        struct stat status{};
        ::lstat(entry.path().c_str(), &status);
        children.push_back({.name = name.native(),
                            .url = url / name,
                            .kind = StorageNode::Kind::file,
                            .bytes = std::int64_t{status.st_blocks} * 512});
    }
    return StorageScanner::makeFolderNode(url.filename().native(), url, std::move(children));
}

// Of equal size, by name: listings have no order that two walks share.
void putInOrder(StorageNode& node) {
    std::ranges::stable_sort(node.children, [](const StorageNode& left, const StorageNode& right) {
        if (left.url.has_value() != right.url.has_value()) return left.url.has_value();
        if (left.bytes != right.bytes) return left.bytes > right.bytes;
        return left.name < right.name;
    });
    for (StorageNode& child : node.children) putInOrder(child);
}

TEST_F(MeasuringRealFiles, GivesTheTreeThatAFullListingGives) {
    std::mt19937 random(3);
    std::vector<fs::path> folders{"/Users/sam"};
    for (int index = 0; index < 150; ++index) {
        folders.push_back(folders[random() % folders.size()] / ("f" + std::to_string(index)));
        fs::create_directory(here(folders.back()));
    }
    for (int index = 0; index < 1'500; ++index) {
        const std::int64_t bytes = index % 10 == 0 ? 4'096 * (1 + random() % 150) : 0;
        addFile(folders[random() % folders.size()] / std::to_string(index), bytes);
    }
    fs::create_directory_symlink("/Users", here("/Users/sam/loop"));

    const folder::HostAnswers answers(host_);
    const folder::DiskFileSystem files(*disk_, answers);
    StorageNode expected = listed(here("/Users"), "/Users");
    ASSERT_GE(expected.bytes, 10'000'000);
    putInOrder(expected);
    for (int round = 0; round < 5; ++round) {
        StorageNode found = StorageScanner::scanRoot(platform(files), "/Users", {}, {});
        putInOrder(found);
        ASSERT_EQ(found, expected);
    }
}

TEST_F(MeasuringRealFiles, LeavesOutProtectedFoldersPackagesInsidesAndMounts) {
    addFile("/Users/sam/Desktop/a", 12 << 20);
    addFile("/Users/sam/Film.app/Contents/.b", 16 << 20);
    addFile("/Users/sam/Volume/c", 1 << 20);
    addFile("/Users/sam/Locked/d", 1 << 20);
    host_.mounts = {"/Users/sam/Volume"};
    host_.unreadable = {"/Users/sam/Locked"};
    const folder::HostAnswers answers(host_);
    const folder::DiskFileSystem files(*disk_, answers);
    const StorageNode found = StorageScanner::scanRoot(
        platform(files), "/Users", StorageScanner::protectedFolders("/Users/sam"), {});
    const StorageNode film{.name = "Film",
                           .url = "/Users/sam/Film.app",
                           .kind = StorageNode::Kind::file,
                           .bytes = 16 << 20};
    const StorageNode sam{.name = "sam",
                          .url = "/Users/sam",
                          .kind = StorageNode::Kind::folder,
                          .bytes = 16 << 20,
                          .children = {film}};
    EXPECT_THAT(found.children, ElementsAre(sam));
}

TEST_F(MeasuringRealFiles, FindsLargeFilesByTheirBlocksAndNotByTheirLength) {
    addFile("/Users/sam/Movies/film.mov", 100'000'000);
    addFile("/Users/sam/Movies/sparse.mov", 2'000'000'000, true);
    const fs::path film = here("/Users/sam/Movies/film.mov");
    const timespec times[] = {{1'700'000'000, 0}, {1'700'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, film.c_str(), times, 0), 0);
    struct stat status{};
    ::lstat(film.c_str(), &status);
    struct stat parent{};
    ::lstat(here("/Users/sam/Movies").c_str(), &parent);

    const Instant now{std::chrono::seconds{1'800'000'000}};
    const Instant modified{std::chrono::seconds{1'700'000'000}};
    const auto scan = [&] {
        const folder::HostAnswers answers(host_);
        const folder::DiskFileSystem files(*disk_, answers);
        return scanLargeFiles(platform(files), "/Users/sam", {}, now, {});
    };
    EXPECT_THAT(scan(), ElementsAre(LargeFile{.url = "/Users/sam/Movies/film.mov",
                                              .bytes = std::int64_t{status.st_blocks} * 512,
                                              .kind = FileKind::video,
                                              .lastUsed = modified,
                                              .since = modified,
                                              .folder = {parent.st_dev, parent.st_ino}}));

    host_.aliases = {"/Users/sam/Movies/film.mov"};
    EXPECT_THAT(scan(), IsEmpty());
    host_.aliases = {};
    host_.hidden = {"/Users/sam/Movies"};
    EXPECT_THAT(scan(), IsEmpty());
    host_.hidden = {};

    fs::rename(film, here("/Users/sam/Movies/film"));
    EXPECT_EQ(scan().size(), 1U);
    fs::permissions(here("/Users/sam/Movies/film"), fs::perms::owner_all);
    EXPECT_THAT(scan(), IsEmpty()) << "what may be executed is a program";
}

}  // namespace
}  // namespace morvane
