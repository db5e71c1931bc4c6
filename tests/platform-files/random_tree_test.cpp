#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

#include "collecting_visit.h"
#include "folder_disk.h"

namespace morvane::folder {

namespace {

// Sums allocated sizes of the regular files by whole paths, without what is tested.
std::int64_t sumByPaths(const std::filesystem::path& place, std::size_t& entries) {
    std::int64_t bytes = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
        struct stat status{};
        if (::lstat(entry.path().c_str(), &status) != 0) ADD_FAILURE() << entry.path();
        if (S_ISREG(status.st_mode)) bytes += status.st_blocks * 512;
        ++entries;
    }
    return bytes;
}

void addRandomTree(const FolderDisk& disk, std::mt19937& random, int items) {
    std::vector<std::filesystem::path> folders{"/top"};
    std::vector<std::filesystem::path> files;
    disk.addFolder("/top");
    for (int number = 0; number < items; ++number) {
        const std::filesystem::path folder = folders[random() % folders.size()];
        const std::filesystem::path path = folder / (std::to_string(number) + ".x");
        switch (random() % 8) {
            case 0:
            case 1:
                disk.addFolder(path);
                folders.push_back(path);
                break;
            case 2:
                disk.addLink(path, folders[random() % folders.size()]);
                break;
            case 3:
                disk.addPipe(path);
                break;
            case 4:
                if (files.empty()) break;
                std::filesystem::create_hard_link(disk.place(files[random() % files.size()]),
                                                  disk.place(path));
                break;
            default:
                disk.addFile(path, static_cast<std::int64_t>(random() % 5) * 4'096);
                files.push_back(path);
        }
    }
}

void addUpBothWays(FolderDisk::Where where, unsigned seeds, int items) {
    for (unsigned seed = 1; seed <= seeds; ++seed) {
        std::mt19937 random(seed);
        const FolderDisk disk(where);
        addRandomTree(disk, random, items);
        std::size_t entries = 0;
        const std::int64_t expected = sumByPaths(disk.place("/top"), entries);
        EXPECT_EQ(disk.size("/top"), expected) << seed;
        Collected collected;
        ASSERT_TRUE(collect(disk.files(), "/top", {}, collected));
        EXPECT_EQ(collected.bytes(), expected) << seed;
        EXPECT_EQ(collected.entries.size(), entries) << seed;
        EXPECT_TRUE(collected.isEachOnce()) << seed;
        EXPECT_EQ(collected.overlapping, 0) << seed;
        EXPECT_EQ(collected.entered, collected.ended) << seed;
    }
}

TEST(RandomTree, InMemoryAddsUpAsAWalkByPathsDoes) {
    addUpBothWays(FolderDisk::Where::memory, 12, 1'500);
}

// File systems number the places in a folder in ways of their own.
TEST(RandomTree, OnARealDiskAddsUpAsAWalkByPathsDoes) {
    addUpBothWays(FolderDisk::Where::disk, 2, 800);
}

TEST(Sizes, AreThoseAllocatedAndHardLinksCountEachTime) {
    const FolderDisk disk(FolderDisk::Where::disk);
    disk.addFile("/top/a", 4'096);
    std::filesystem::create_hard_link(disk.place("/top/a"), disk.place("/top/b"));
    disk.addFile("/top/sparse", 0);
    std::filesystem::resize_file(disk.place("/top/sparse"), 1'000'000'000);
    EXPECT_EQ(disk.size("/top"), 8'192);
}

TEST(Sizes, ManyWalksAtOnceShareTheThreads) {
    const FolderDisk disk;
    std::mt19937 random(77);
    addRandomTree(disk, random, 3'000);
    std::size_t entries = 0;
    const std::int64_t expected = sumByPaths(disk.place("/top"), entries);
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&] {
            for (int round = 0; round < 10; ++round) EXPECT_EQ(disk.size("/top"), expected);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace

}  // namespace morvane::folder
