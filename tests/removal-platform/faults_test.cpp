#include <functional>
#include <gtest/gtest.h>

#include "removal_disk.h"

namespace morvane::folder {

namespace {

// A small disk with something of everything to remove.
void fill(RemovalDisk& disk) {
    disk.file("/Users/sam/Library/Caches/a/inner/deep", "deep");
    disk.link("/Users/sam/Library/Caches/a/out", "/Canary");
    disk.file("/Users/sam/Library/Caches/b.txt", "b");
    disk.file("/Users/sam/.Trash/b.txt", "was there");
    disk.link("/Users/sam/Library/Caches/link", "/Canary/full");
}

std::vector<RemovalTarget> targets(RemovalDisk& disk) {
    return {disk.plan("/Users/sam/Library/Caches/a"), disk.plan("/Users/sam/Library/Caches/b.txt"),
            disk.plan("/Users/sam/Library/Caches/link")};
}

// Runs `act` on a fresh disk for every call it makes, with that call failing.
void withEachCallFailing(const std::function<void(RemovalDisk&)>& act,
                         const std::function<void(RemovalDisk&)>& check) {
    std::map<std::string, int> calls;
    {
        RemovalDisk disk;
        fill(disk);
        act(disk);
        for (const std::string& name : callNames) calls[name] = disk.calls.count(name);
    }
    int runs = 0;
    for (const std::string& name : callNames) {
        for (const int code : {EIO, ENOSPC, EACCES}) {
            for (int number = 1; number <= calls[name]; ++number) {
                SCOPED_TRACE(name + " " + std::to_string(number) + " errno " +
                             std::to_string(code));
                RemovalDisk disk;
                fill(disk);
                disk.calls.failOne(name, number, code);
                const std::size_t descriptors = openDescriptors();
                act(disk);
                EXPECT_EQ(openDescriptors(), descriptors + 1);
                EXPECT_EQ(disk.bytes("/Users/sam/.Trash/b.txt"), "was there");
                disk.expectCanaryUntouched();
                check(disk);
                ++runs;
                if (::testing::Test::HasFailure()) return;
            }
        }
    }
    EXPECT_GT(runs, 30);
}

TEST(Faults, LeaveEachItemAtItsOldPlaceOrInTheTrash) {
    withEachCallFailing(
        [](RemovalDisk& disk) {
            const RemovalReport report = disk.remover().recycle(targets(disk));
            for (const auto& [from, to] : report.trashed) {
                EXPECT_FALSE(disk.stands(from.native()));
                EXPECT_TRUE(disk.stands(to.native()));
            }
            // What is not reported as moved was not moved.
            for (const char* path :
                 {"/Users/sam/Library/Caches/a", "/Users/sam/Library/Caches/b.txt",
                  "/Users/sam/Library/Caches/link"}) {
                EXPECT_EQ(disk.stands(path), !report.trashed.contains(path));
            }
            EXPECT_EQ(report.trashed.size() < 3, report.error.has_value());
        },
        [](RemovalDisk& disk) { disk.expectOldPlaceOrTrash(); });
}

TEST(Faults, OfADeletionAreReportedExactlyWhenSomethingStays) {
    withEachCallFailing(
        [](RemovalDisk& disk) {
            const RemovalReport report = disk.remover().removeOutright(targets(disk));
            EXPECT_TRUE(report.trashed.empty());
            EXPECT_EQ(report.error.has_value(), !disk.names("/Users/sam/Library/Caches").empty());
        },
        [](RemovalDisk& disk) {
            disk.expectOldPlaceOrGone();
            EXPECT_TRUE(disk.stands("/Users/sam/Library/Caches"));
        });
}

TEST(Faults, OfPuttingBackLeaveBothPlacesAsTheyWere) {
    withEachCallFailing(
        [](RemovalDisk& disk) {
            std::filesystem::rename(disk.place("/Users/sam/Library/Caches/a"),
                                    disk.place("/Users/sam/.Trash/a"));
            const test::TreeSnapshot trash = test::takeSnapshot(disk.place("/Users/sam/.Trash/a"));
            const std::optional<Failure> failure =
                disk.remover().putBack("/Users/sam/.Trash/a", "/Users/sam/Library/new/newer/a");
            const std::string now =
                failure ? "/Users/sam/.Trash/a" : "/Users/sam/Library/new/newer/a";
            EXPECT_EQ(test::differences(trash, test::takeSnapshot(disk.place(now))), "");
            EXPECT_EQ(disk.stands("/Users/sam/.Trash/a"), failure.has_value());
        },
        [](RemovalDisk& disk) {
            if (disk.stands("/Users/sam/.Trash/a")) {
                EXPECT_FALSE(disk.stands("/Users/sam/Library/new"));
            }
        });
}

}  // namespace

}  // namespace morvane::folder
