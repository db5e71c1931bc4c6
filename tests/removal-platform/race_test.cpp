#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "removal_disk.h"

namespace morvane::folder {

namespace {

// Removers of their own, without the recorder, so that several may work at once.
class Races : public RemovalTest {
protected:
    DiskRemover plain() { return DiskRemover(disk.root(), disk.answers()); }
};

// Swaps two names for each other again and again, until told to stop; leaves them as they were.
void swapUntil(const std::filesystem::path& one, const std::filesystem::path& other,
               const std::atomic<bool>& stop) {
    const std::filesystem::path aside = one.native() + " aside";
    std::error_code error;
    while (!stop) {
        std::filesystem::rename(one, aside, error);
        if (error) continue;
        std::filesystem::rename(other, one, error);
        std::filesystem::rename(one, other, error);
        std::filesystem::rename(aside, one, error);
    }
}

constexpr int rounds = 200;

TEST_F(Races, AMiddleFolderSwappedForALinkTouchesNothingBehindTheLink) {
    for (const bool outright : {false, true}) {
        for (const char* linkTarget : {"/Canary", "../Documents"}) {
            disk.file("/Users/sam/Library/Caches/letter.txt", "planned");
            disk.file("/Users/sam/Library/Caches/full/deeper/photo.raw", "planned");
            disk.link("/Users/sam/Library/link", linkTarget);
            const FolderIdentity caches = disk.identity("/Users/sam/Library/Caches");
            DiskRemover remover = plain();
            std::atomic<bool> stop = false;
            std::thread swapper(swapUntil, disk.place("/Users/sam/Library/Caches"),
                                disk.place("/Users/sam/Library/link"), std::ref(stop));
            for (int round = 0; round < rounds; ++round) {
                const std::vector<RemovalTarget> targets = {
                    {"/Users/sam/Library/Caches/letter.txt", caches},
                    {"/Users/sam/Library/Caches/full", caches}};
                (void)(outright ? remover.removeOutright(targets) : remover.recycle(targets));
            }
            stop = true;
            swapper.join();
            for (const std::string name : {"letter.txt", "full"}) {
                const bool atOldPlace = disk.stands("/Users/sam/Library/Caches/" + name);
                const bool inTrash = disk.stands("/Users/sam/.Trash/" + name);
                EXPECT_FALSE(atOldPlace && inTrash) << name;
                EXPECT_TRUE(outright || atOldPlace || inTrash) << name;
            }
            disk.expectCanaryUntouched();
            std::filesystem::remove_all(disk.place("/Users/sam/Library"));
            std::filesystem::remove_all(disk.place("/Users/sam/.Trash"));
        }
    }
}

TEST_F(Races, AnItemSwappedForALinkIsWhatGoesItself) {
    for (const bool outright : {false, true}) {
        disk.folder("/Users/sam/Library");
        DiskRemover remover = plain();
        for (int round = 0; round < rounds; ++round) {
            disk.file("/Users/sam/Library/item/inner/file", "planned");
            disk.link("/Users/sam/Library/link", "/Canary/full");
            const RemovalTarget target = {"/Users/sam/Library/item",
                                          disk.identity("/Users/sam/Library")};
            std::atomic<bool> stop = false;
            std::thread swapper(swapUntil, disk.place("/Users/sam/Library/item"),
                                disk.place("/Users/sam/Library/link"), std::ref(stop));
            (void)(outright ? remover.removeOutright({target}) : remover.recycle({target}));
            stop = true;
            swapper.join();
            std::filesystem::remove_all(disk.place("/Users/sam/Library"));
            disk.folder("/Users/sam/Library");
        }
        disk.expectCanaryUntouched();
    }
}

TEST_F(Races, TwoThreadsThatTakeTheSameItemsMoveEachOnce) {
    std::vector<RemovalTarget> targets;
    for (int i = 0; i < 200; ++i) {
        const std::string path =
            "/Users/sam/Library/" + std::to_string(i % 20) + "/" + std::to_string(i) + "/Cache.db";
        disk.file(path);
        targets.push_back(disk.plan(path));
    }
    DiskRemover remover = plain();
    RemovalReport one;
    RemovalReport other;
    std::thread first([&] { one = remover.recycle(targets); });
    std::thread second([&] { other = remover.recycle(targets); });
    first.join();
    second.join();
    EXPECT_EQ(one.trashed.size() + other.trashed.size(), 200U);
    std::set<std::filesystem::path> names;
    for (const auto& report : {one, other}) {
        for (const auto& [from, to] : report.trashed) {
            EXPECT_FALSE(disk.stands(from.native()));
            EXPECT_TRUE(disk.stands(to.native()));
            names.insert(to);
        }
    }
    EXPECT_EQ(names.size(), 200U);
    EXPECT_EQ(disk.names("/Users/sam/.Trash").size(), 200U);
}

TEST_F(Races, TwoProcessesThatTakeItemsOfOneNameLoseNone) {
    std::vector<RemovalTarget> mine;
    std::vector<RemovalTarget> theirs;
    for (int i = 0; i < 200; ++i) {
        const std::string path = "/Users/sam/Library/" + std::to_string(i) + "/Cache.db";
        disk.file(path);
        (i % 2 == 0 ? mine : theirs).push_back(disk.plan(path));
    }
    DiskRemover remover = plain();
    const pid_t child = ::fork();
    if (child == 0) {
        const RemovalReport report = remover.recycle(theirs);
        ::_exit(report.trashed.size() == 100 && !report.error ? 0 : 1);
    }
    const RemovalReport report = remover.recycle(mine);
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(report.error, std::nullopt);
    EXPECT_EQ(report.trashed.size(), 100U);
    EXPECT_EQ(disk.names("/Users/sam/.Trash").size(), 200U);
}

}  // namespace

}  // namespace morvane::folder
