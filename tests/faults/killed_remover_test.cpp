// The remover killed before each of its calls, in a process of its own. Needs no strace.

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "removal_disk.h"

namespace morvane::folder {
namespace {

const std::string cache = "/Users/sam/Library/Caches/";
const std::string trash = "/Users/sam/.Trash/";

void fill(RemovalDisk& disk) {
    disk.file(cache + "a/inner/deep", "deep");
    disk.link(cache + "a/out", "/Canary");
    disk.file(cache + "b.txt", "b");
    disk.file(trash + "b.txt", "was there");
}

std::vector<RemovalTarget> targets(RemovalDisk& disk) {
    return {disk.plan(cache + "a"), disk.plan(cache + "b.txt")};
}

// Runs `act` on fresh disks, killed at its first call, its second, and so on until it ends by
// itself; `check` looks at each disk. Gives how often it was killed.
int killAtEachCall(const std::function<void(RemovalDisk&)>& act,
                   const std::function<void(RemovalDisk&)>& check) {
    for (int number = 1;; ++number) {
        SCOPED_TRACE("killed at call " + std::to_string(number));
        RemovalDisk disk;
        fill(disk);
        const std::vector<RemovalTarget> planned = targets(disk);
        const pid_t child = ::fork();
        if (child == 0) {
            int calls = 0;
            disk.calls.before = [&](const std::string&, const std::string&) {
                if (++calls == number) std::raise(SIGKILL);
            };
            act(disk);
            ::_exit(0);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        disk.expectCanaryUntouched();
        EXPECT_EQ(disk.bytes(trash + "b.txt"), "was there");
        check(disk);
        if (!WIFSIGNALED(status)) return number - 1;
        if (::testing::Test::HasFailure()) return number;
    }
}

TEST(KilledRemover, LeavesEachItemAtItsOldPlaceOrInTheTrash) {
    const int kills =
        killAtEachCall([](RemovalDisk& disk) { (void)disk.remover().recycle(targets(disk)); },
                       [](RemovalDisk& disk) {
                           disk.expectOldPlaceOrTrash();
                           // The next one takes what was left.
                           (void)disk.remover().recycle({{cache + "a"}, {cache + "b.txt"}});
                           disk.expectOldPlaceOrTrash();
                           EXPECT_EQ(disk.names(cache), std::vector<std::string>());
                       });
    EXPECT_GE(kills, 20);
}

TEST(KilledRemover, LeavesWhatItHasNotDeletedToTheNext) {
    const int kills = killAtEachCall(
        [](RemovalDisk& disk) { (void)disk.remover().removeOutright(targets(disk)); },
        [](RemovalDisk& disk) {
            disk.expectOldPlaceOrGone();
            (void)disk.remover().removeOutright({{cache + "a"}, {cache + "b.txt"}});
            EXPECT_EQ(disk.names(cache), std::vector<std::string>());
        });
    EXPECT_GE(kills, 20);
}

TEST(KilledRemover, PutsBackWholeOrNotAtAll) {
    const std::string target = "/Users/sam/new/newer/b.txt";
    const int kills = killAtEachCall(
        [&](RemovalDisk& disk) { (void)disk.remover().putBack(cache + "b.txt", target); },
        [&](RemovalDisk& disk) {
            EXPECT_NE(disk.stands(cache + "b.txt"), disk.stands(target));
            (void)disk.remover().putBack(cache + "b.txt", target);
            EXPECT_EQ(disk.bytes(target), "b");
            EXPECT_FALSE(disk.stands(cache + "b.txt"));
        });
    EXPECT_GE(kills, 10);
}

}  // namespace
}  // namespace morvane::folder
