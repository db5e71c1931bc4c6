// Measures a deep walk against `du -s` on 400,000 files in 30,000 folders:
//
//   walk_bench FOLDER [ROUNDS]
//
// FOLDER lies on a real file system and is kept from run to run; the tree is made in it the first
// time. Everything runs with warm caches and in turns, at least five rounds; minima are compared.
// Other work on the machine spoils the numbers. What to reach on two cores: 0.47 of the time that
// du takes, user time of a third of the system time, 8 MiB above start-up.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "bare_loop.h"
#include "make_tree.h"
#include "measure.h"
#include "platform/folder/disk_file_system.h"

namespace {

using namespace morvane;  // NOLINT(google-build-using-namespace)

// The parts of this program that are measured as processes of their own: each prints the bytes it
// found, the seconds it took without start-up, and the KiB above start-up.
int runPart(const std::string& part, const std::string& folder) {
    const std::int64_t before = bench::peakMemory();
    const auto start = std::chrono::steady_clock::now();
    std::int64_t bytes = 0;
    if (part == "--bare") {
        bytes = bench::bareLoop(folder);
    } else {
        const auto disk = folder::DiskRoot::open(folder);
        if (!disk.ok()) return 1;
        const folder::HostAnswers host{folder::Host{}};
        const folder::DiskFileSystem files(*disk, host);
        bytes = files.treeSize("/", part == "--dates", StopToken()).bytes;
    }
    const auto took = std::chrono::steady_clock::now() - start;
    std::printf("%lld %.6f %lld\n", static_cast<long long>(bytes),
                std::chrono::duration<double>(took).count(),
                static_cast<long long>(bench::peakMemory() - before));
    return 0;
}

struct Best {
    bench::Run run{.wall = 1e9, .user = 1e9, .system = 1e9};
    double inside = 1e9;
    long long bytes = 0;
    long long memory = 0;

    bool add(const bench::Run& next, bool isOurs) {
        if (!next.good) return false;
        if (next.wall < run.wall) run = next;
        if (!isOurs) return true;
        double took = 0;
        long long held = 0;
        if (std::sscanf(next.said.c_str(), "%lld %lf %lld", &bytes, &took, &held) != 3)
            return false;
        inside = std::min(inside, took);
        memory = std::max(memory, held);
        return true;
    }
};

void print(const char* name, const Best& best) {
    std::printf("%-28s %8.3f s wall %8.3f s user %8.3f s system", name, best.run.wall,
                best.run.user, best.run.system);
    if (best.memory > 0) std::printf("   %5lld KiB above start-up", best.memory);
    std::printf("\n");
}

int compare(const std::string& self, const std::string& folder, int rounds) {
    const std::string tree = folder + "/walk-tree";
    struct stat status{};
    if (::stat(tree.c_str(), &status) != 0) {
        std::printf("making 400,000 files in %s\n", tree.c_str());
        std::fflush(stdout);
        const std::string unfinished = tree + ".unfinished";
        if (!bench::makeTree(unfinished)) return 1;
        if (std::rename(unfinished.c_str(), tree.c_str()) != 0) return 1;
    }
    Best du;
    Best size;
    Best dates;
    Best bare;
    for (int round = 0; round <= rounds; ++round) {
        if (round == 1) du = size = dates = bare = Best();  // the first one warms the caches
        if (!du.add(bench::runProgram({"du", "-s", tree}), false) ||
            !size.add(bench::runProgram({self, "--size", tree}), true) ||
            !dates.add(bench::runProgram({self, "--dates", tree}), true) ||
            !bare.add(bench::runProgram({self, "--bare", tree}), true)) {
            std::fputs("a run failed\n", stderr);
            return 1;
        }
    }
    print("du -s", du);
    print("treeSize, whole process", size);
    print("treeSize with dates", dates);
    print("two threads, bare calls", bare);
    std::printf("treeSize alone %.3f s; sums agree: %s\n", size.inside,
                size.bytes == bare.bytes && size.bytes == dates.bytes ? "yes" : "NO");
    std::printf("of du's wall time: %.3f (bare calls %.3f)\n", size.run.wall / du.run.wall,
                bare.run.wall / du.run.wall);
    std::printf("user of system time: %.3f\n", size.run.user / size.run.system);
    return size.bytes == bare.bytes ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
    const std::vector<std::string> given(words, words + count);
    if (given.size() == 3 && given[1].starts_with("--")) return runPart(given[1], given[2]);
    if (given.size() < 2 || given.size() > 3) {
        std::fputs("usage: walk_bench FOLDER [ROUNDS]\n", stderr);
        return 2;
    }
    const int rounds = given.size() == 3 ? std::atoi(given[2].c_str()) : 0;
    return compare("/proc/self/exe", given[1], std::max(rounds, 5));
}
