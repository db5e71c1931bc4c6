#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <sys/stat.h>

#include "support.h"

namespace morvane::sample::test {
namespace {

namespace fs = std::filesystem;

/// Blocks of all files below a folder, one file of several names once, in bytes.
std::int64_t allocatedBelow(const fs::path& folder) {
    std::map<ino_t, std::int64_t> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        struct stat facts{};
        EXPECT_EQ(::lstat(entry.path().c_str(), &facts), 0);
        if (S_ISREG(facts.st_mode)) {
            files[facts.st_ino] = std::int64_t{facts.st_blocks} * 512;
        }
    }
    std::int64_t total = 0;
    for (const auto& [inode, bytes] : files) {
        total += bytes;
    }
    return total;
}

TEST(SampleDisk, IsTheSameToTheLastByteForOneSeedAndMoment) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "first");
    makeSmallDisk(folder.path() / "a longer name for the second");
    const auto first = treeOf(folder.path() / "first");
    const auto second = treeOf(folder.path() / "a longer name for the second");
    EXPECT_GT(first.size(), 5'000U);
    EXPECT_TRUE(first == second);
}

TEST(SampleDisk, IsAnotherForAnotherSeed) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "one");
    makeSmallDisk(folder.path() / "two", {"--seed", "2"});
    const auto one = treeOf(folder.path() / "one");
    const auto two = treeOf(folder.path() / "two");
    const std::string movie = "root/Users/sam/Movies/Lake District 2023.mov";
    EXPECT_NE(one.at(movie).size, two.at(movie).size);
    EXPECT_NE(one.at(movie).seconds, two.at(movie).seconds);
    std::size_t onlyInOne = 0;
    for (const auto& [path, item] : one) {
        onlyInOne += two.contains(path) ? 0U : 1U;
    }
    EXPECT_GT(onlyInOne, 1'000U);
    EXPECT_NE(one.at("root/private/var/db/simulator-runtimes").content,
              two.at("root/private/var/db/simulator-runtimes").content);
}

TEST(SampleDisk, HasTheSameBenchmarkTreeForOneSeedAndMoment) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "first", {"--entries", "12000"});
    makeSmallDisk(folder.path() / "second", {"--entries", "12000"});
    EXPECT_TRUE(treeOf(folder.path() / "first") == treeOf(folder.path() / "second"));
}

TEST(SampleDisk, HasTheSameModesUnderAnotherUmask) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "usual", {"--entries", "7000"});
    const Ending ending = run({"/bin/sh", "-c", "umask 077; exec \"$0\" \"$@\"",
                               MORVANE_SAMPLE_DISK, folder.path() / "strict", "--size=50M",
                               "--now=2026-11-21T12:00:00Z", "--entries=7000"});
    ASSERT_EQ(ending.status, 0) << ending.errors;
    auto usual = treeOf(folder.path() / "usual");
    auto strict = treeOf(folder.path() / "strict");
    EXPECT_TRUE(usual == strict);
}

TEST(SampleDisk, CountsEveryAgeFromTheMoment) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "now");
    makeSmallDisk(folder.path() / "later", {"--now", "2026-12-01T13:00:00+01:00"});
    const auto now = treeOf(folder.path() / "now");
    const auto later = treeOf(folder.path() / "later");
    std::size_t compared = 0;
    for (const auto& [path, item] : now) {
        // Screenshots and archives carry their day in their names, so they are not the same files.
        const bool isNamedByDay = path.find("/Desktop") != std::string::npos ||
                                  path.find("/Xcode/Archives") != std::string::npos;
        if (const auto other = later.find(path); other != later.end() && !isNamedByDay) {
            EXPECT_EQ(other->second.seconds - item.seconds, 864'000) << path;
            EXPECT_EQ(item.nanoseconds, 0) << path;
            ++compared;
        }
    }
    EXPECT_GT(compared, 5'000U);
    EXPECT_EQ(now.at("host.json").seconds, 1'795'262'400);
}

TEST(SampleDisk, HasAboutTheAskedSizeInRealBlocks) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "disk", {"--size", "200M"});
    const std::int64_t allocated = allocatedBelow(folder.path() / "disk/root");
    EXPECT_GT(allocated, 194'000'000);
    EXPECT_LT(allocated, 208'000'000);
    for (const fs::directory_entry& entry :
         fs::recursive_directory_iterator(folder.path() / "disk/root/Users/sam/Movies")) {
        struct stat facts{};
        ASSERT_EQ(::lstat(entry.path().c_str(), &facts), 0);
        if (S_ISREG(facts.st_mode)) {
            EXPECT_GE(std::int64_t{facts.st_blocks} * 512, facts.st_size) << entry.path();
        }
    }
}

TEST(SampleDisk, KeepsAFewLargeFilesOnADiskOfOneGigabyte) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "disk", {"--size", "1G"});
    const fs::path home = folder.path() / "disk/root/Users/sam";
    EXPECT_GE(fs::file_size(home / "Movies/Lake District 2023.mov"), 100'000'000U);
    EXPECT_GE(fs::file_size(home / "Virtual Machines/Debian.utm/Data/disk-0.qcow2"), 100'000'000U);
    EXPECT_GE(fs::file_size(home / "Desktop/rescue-system.iso"), 100'000'000U);
    EXPECT_GE(fs::file_size(home / "Documents/Backups/photos-2022.zip"), 100'000'000U);
    const std::int64_t allocated = allocatedBelow(folder.path() / "disk/root");
    EXPECT_GT(allocated, 980'000'000);
    EXPECT_LT(allocated, 1'020'000'000);
}

TEST(SampleDisk, HasTheAskedNumberOfEntries) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "disk", {"--entries", "20000"});
    const auto tree = treeOf(folder.path() / "disk/root");
    EXPECT_EQ(tree.size(), 20'001U);  // the root counts itself
    const auto isUnder = [&](const std::string& start) {
        const auto place = tree.lower_bound(start);
        return place != tree.end() && place->first.starts_with(start);
    };
    EXPECT_TRUE(isUnder("Users/sam/Projects/monorepo-0001/node_modules/package-"));
    EXPECT_TRUE(isUnder("Users/sam/Library/Caches/org.benchmark.reader"));
    EXPECT_TRUE(isUnder("Applications/Bench Suite 0001/Tool 0001.app/Contents/Resources/"));
    EXPECT_TRUE(isUnder("opt/homebrew/Cellar/formula-0001/"));
}

TEST(SampleDisk, SaysInOneLineThatTheFileSystemIsFull) {
    const TemporaryFolder folder;
    const std::string disk = folder.path() / "mount/disk";
    fs::create_directory(folder.path() / "mount");
    std::string script = "mount -t tmpfs -o size=40m none \"$1\" && exec \"$2\" \"$3\" --size 80M";
    std::string reason = "No space left on device";
    std::vector<std::string> command{"/usr/bin/unshare", "-rm", "/bin/sh", "-c"};
    if (run({"/usr/bin/unshare", "-rm", "/bin/true"}).status != 0) {
        std::cout << "no user namespace here: a limit on the length of files stands in\n";
        script = "trap '' XFSZ; ulimit -f 100; exec \"$2\" \"$3\" --size 80M";
        reason = "File too large";
        command = {"/bin/sh", "-c"};
    }
    command.insert(command.end(),
                   {script, "sh", (folder.path() / "mount").native(), MORVANE_SAMPLE_DISK, disk});
    const Ending ending = run(command);
    EXPECT_EQ(ending.status, 1);
    EXPECT_EQ(ending.output, "");
    EXPECT_NE(ending.errors.find(reason), std::string::npos) << ending.errors;
    EXPECT_EQ(ending.errors.find('\n'), ending.errors.size() - 1) << ending.errors;
}

}  // namespace
}  // namespace morvane::sample::test
