#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "collecting_visit.h"
#include "folder_disk.h"

namespace morvane::folder {

namespace {

using Make = std::function<void(int folder, int level)>;

void addFileAt(int folder, const std::string& name) {
    const Descriptor file(::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    ASSERT_EQ(::write(file.get(), "x", 1), 1);  // one block of 4,096 bytes
}

// A chain "/d/d/d/…" of `levels` folders, each given to `make` when it is there.
void addChain(const FolderDisk& disk, int levels, const Make& make) {
    Descriptor here(::open(disk.place("/").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int level = 1; level <= levels; ++level) {
        ASSERT_EQ(::mkdirat(here.get(), "d", 0755), 0);
        here = Descriptor(::openat(here.get(), "d", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        make(here.get(), level);
    }
}

// Counts; keeps no names, and every child it was given back, as a scan that builds a tree does.
class CountingVisit : public FolderVisit {
public:
    void entries(const WalkedFolder& /*folder*/, std::span<const WalkedEntry> batch) override {
        for (const WalkedEntry& entry : batch) bytes += entry.allocatedBytes;
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder& /*folder*/,
                                       const WalkedEntry& /*entry*/) override {
        return std::make_unique<CountingVisit>();
    }
    void ended(std::unique_ptr<FolderVisit> child) override {
        const auto& below = static_cast<CountingVisit&>(*child);
        bytes += below.bytes;
        folders += below.folders + 1;
    }

    std::int64_t bytes = 0;
    std::int64_t folders = 0;
};

int openDescriptors() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry :
         std::filesystem::directory_iterator("/proc/self/fd")) {
        ++count;
    }
    return count;
}

TEST(Depth, TwelveThousandLevelsAreWalkedToTheLastFile) {
    const FolderDisk disk;
    addChain(disk, 12'000, [](int folder, int level) {
        addFileAt(folder, "file");
        if (level % 100 != 0) return;
        // Gone into on the way up, when the folder has been closed and opened again.
        ASSERT_EQ(::mkdirat(folder, "a", 0755), 0);
        ASSERT_EQ(::mkdirat(folder, "z", 0755), 0);
        const Descriptor below(::openat(folder, "a", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        addFileAt(below.get(), "file");
        const Descriptor other(::openat(folder, "z", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        addFileAt(other.get(), "file");
    });
    EXPECT_EQ(disk.size("/"), 12'240 * 4'096);
    CountingVisit top;
    ASSERT_TRUE(disk.files().walk("/", {}, top, StopToken()));
    EXPECT_EQ(top.folders, 12'240);
    EXPECT_EQ(top.bytes, 12'240 * 4'096);
}

TEST(Depth, FewFoldersAreOpenAtATime) {
    const FolderDisk disk(FolderDisk::Where::memory, 0);
    addChain(disk, 400, [](int folder, int level) {
        if (level == 400) addFileAt(folder, "file");
    });
    const int before = openDescriptors();
    int most = 0;
    Collected collected;
    collected.meanwhile = [&](const WalkedFolder&) { most = std::max(most, openDescriptors()); };
    ASSERT_TRUE(collect(disk.files(), "/", {}, collected));
    EXPECT_EQ(collected.entries.size(), 401U);
    EXPECT_LE(most - before, 26);
    EXPECT_EQ(openDescriptors(), before);
}

TEST(Depth, AProcessWithHardlyADescriptorLeftLosesNothing) {
    const FolderDisk disk(FolderDisk::Where::memory, 0);
    addChain(disk, 60, [](int folder, int /*level*/) { addFileAt(folder, "file"); });
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const Descriptor next(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    rlimit few = before;
    few.rlim_cur = static_cast<rlim_t>(next.get()) + 6;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const std::int64_t bytes = disk.size("/");
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(bytes, 60 * 4'096);
}

// Long names, so that few of them fill the buffer of a listing.
std::string longName(int number) {
    return std::to_string(number) + std::string(240, '-');
}

TEST(Depth, FoldersWithMuchUnreadAboveADeepOneAreReadToTheEnd) {
    const FolderDisk disk;
    addChain(disk, 70, [](int folder, int level) {
        if (level % 2 != 0) return;
        for (int number = 0; number < 700; ++number) {
            ASSERT_EQ(::mkdirat(folder, longName(number).c_str(), 0755), 0);
        }
        addFileAt(folder, "file");
    });
    Collected collected;
    ASSERT_TRUE(collect(disk.files(), "/", {}, collected));
    EXPECT_EQ(collected.entries.size(), 35U * 701U + 70U);
    EXPECT_TRUE(collected.isEachOnce());
    EXPECT_EQ(collected.entered, collected.ended);
    EXPECT_EQ(disk.size("/"), 35 * 4'096);
}

TEST(Depth, AFolderMovedAwayMeanwhileNeverLeadsIntoAnother) {
    const FolderDisk disk(FolderDisk::Where::memory, 0);
    addChain(disk, 60, [](int folder, int /*level*/) {
        ASSERT_EQ(::mkdirat(folder, "a", 0755), 0);
        ASSERT_EQ(::mkdirat(folder, "z", 0755), 0);
    });
    // What lies beside the new place has the names that wait at the old one.
    disk.addFile("/elsewhere/a/decoy", 4'096);
    disk.addFile("/elsewhere/z/decoy", 4'096);
    std::filesystem::path tenth = "/";
    for (int level = 1; level <= 10; ++level) tenth /= "d";

    Collected collected;
    bool isMoved = false;
    collected.goesInto = [](const WalkedEntry& entry) { return entry.name != "elsewhere"; };
    collected.meanwhile = [&](const WalkedFolder& folder) {
        if (isMoved || folder.path().native().size() < 120) return;
        std::filesystem::rename(disk.place(tenth), disk.place("/elsewhere/moved"));
        isMoved = true;
    };
    ASSERT_TRUE(collect(disk.files(), "/", {}, collected));
    ASSERT_TRUE(isMoved);
    for (const auto& [path, entry] : collected.entries) {
        EXPECT_EQ(path.find("decoy"), std::string::npos) << path;
    }
    EXPECT_TRUE(collected.isEachOnce());
    EXPECT_EQ(collected.entered, collected.ended);
}

}  // namespace

}  // namespace morvane::folder
