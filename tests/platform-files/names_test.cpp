#include <climits>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "collecting_visit.h"
#include "folder_disk.h"

namespace morvane::folder {

namespace {

TEST(Names, AnyBytesAreKeptAsTheyAre) {
    const FolderDisk disk;
    for (const std::string name : {"two\nlines", "not \xff\xfe UTF-8", " blank ", "-rf", "%41",
                                   "back\\slash", "...", "..a", "quote\"s'"}) {
        const std::string path = "/names/" + name;
        disk.addFile(path, 4'096);
        EXPECT_TRUE(disk.files().attributes(path).ok()) << name;
        Collected collected;
        ASSERT_TRUE(collect(disk.files(), "/names", {}, collected));
        EXPECT_TRUE(collected.has(path)) << name;
    }
    EXPECT_EQ(disk.size("/names"), 9 * 4'096);
    EXPECT_EQ(disk.files().list("/names", Hidden::included)->size(), 9U);
}

TEST(Names, OfTheFullLengthAreWalked) {
    const FolderDisk disk;
    const std::string longest(255, 'x');
    disk.addFile("/" + longest + "/" + longest, 4'096);
    Collected collected;
    ASSERT_TRUE(collect(disk.files(), "/", {}, collected));
    EXPECT_TRUE(collected.has("/" + longest + "/" + longest));
    EXPECT_EQ(disk.size("/"), 4'096);
}

TEST(Names, LongerThanTheSystemKnowsAreNotTakenForGone) {
    const FolderDisk disk;
    EXPECT_EQ(disk.files().presence("/" + std::string(256, 'x')), Presence::unknown);
    EXPECT_FALSE(disk.files().exists("/" + std::string(256, 'x')));
}

TEST(Names, AZeroByteLeadsNowhere) {
    const FolderDisk disk;
    disk.addFile("/a", 0);
    EXPECT_EQ(disk.files().presence(std::string("/a\0b", 4)), Presence::gone);
}

TEST(Paths, LongerThanASystemCallTakesWork) {
    const FolderDisk disk;
    std::filesystem::path path = "/";
    Descriptor here(::open(disk.place("/").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::string name(200, 'n');
    for (int level = 0; level < 40; ++level) {
        path /= name;
        ASSERT_EQ(::mkdirat(here.get(), name.c_str(), 0755), 0);
        here = Descriptor(::openat(here.get(), name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    const Descriptor file(::openat(here.get(), "end", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    ASSERT_EQ(::write(file.get(), "hello", 5), 5);
    const std::filesystem::path end = path / "end";
    ASSERT_GT(end.native().size(), static_cast<std::size_t>(PATH_MAX));

    const DiskFileSystem& files = disk.files();
    EXPECT_EQ(files.attributes(end)->kind, EntryKind::file);
    EXPECT_EQ(files.presence(end), Presence::there);
    EXPECT_EQ(files.presence(path / "none"), Presence::gone);
    EXPECT_TRUE(files.exists(end));
    EXPECT_EQ(*files.readFile(end, 10), "hello");
    EXPECT_EQ(files.probe(end), Probe::opened);
    EXPECT_EQ(files.list(path, Hidden::included)->front().path, end);
    EXPECT_EQ(disk.size(path), 4'096);
    Collected collected;
    ASSERT_TRUE(collect(files, path, {}, collected));
    EXPECT_TRUE(collected.has(end));
    Collected whole;
    ASSERT_TRUE(collect(files, "/", {}, whole));
    EXPECT_TRUE(whole.has(end));
}

}  // namespace

}  // namespace morvane::folder
