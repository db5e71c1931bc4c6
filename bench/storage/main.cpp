// Measures a storage scan against two public disk usage analysers on 400,000 files in 30,000
// folders:
//
//   storage_bench FOLDER [ROUNDS]
//   storage_bench --memory FOLDER
//
// FOLDER lies on a real file system and is kept from run to run; the trees are made in it the first
// time. Everything runs with warm caches and in turns, at least five rounds; minima are compared,
// and every program is counted whole, from its start to its end. Other work on the machine spoils
// the numbers. --memory compares what is held on that tree with one five times as large. What to
// reach on two cores: half of the time of ncdu, a third of that of gdu, 16 MiB above start-up and
// no more for the larger tree.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "measure/storage_scanner.h"
#include "platform/folder/folder_platform.h"
#include "tasks/event_loop.h"
#include "trees.h"
#include "walk/measure.h"

namespace {

using namespace morvane;  // NOLINT(google-build-using-namespace)

constexpr const char* self = "/proc/self/exe";

// The scan as a process of its own: prints the bytes it found, the seconds it took without
// start-up, and the KiB above start-up.
int runScan(const std::string& disk) {
    EventLoop loop;
    auto opened = folder::FolderPlatform::open(disk);
    if (const std::string* wrong = std::get_if<std::string>(&opened)) {
        std::fprintf(stderr, "%s\n", wrong->c_str());
        return 1;
    }
    folder::FolderPlatform& mac = **std::get_if<0>(&opened);
    mac.start(loop);
    const Platform platform = mac.platform();

    const std::int64_t before = bench::peakMemory();
    const auto start = std::chrono::steady_clock::now();
    const StorageNode found = StorageScanner::scanRoot(platform, "/opt", {}, StopToken());
    const auto took = std::chrono::steady_clock::now() - start;
    std::printf("%lld %.6f %lld\n", static_cast<long long>(found.bytes),
                std::chrono::duration<double>(took).count(),
                static_cast<long long>(bench::peakMemory() - before));
    return 0;
}

struct Said {
    long long bytes = 0;
    double seconds = 0;
    long long memory = 0;
};

bool read(const bench::Run& run, Said& said) {
    return run.good && std::sscanf(run.said.c_str(), "%lld %lf %lld", &said.bytes, &said.seconds,
                                   &said.memory) == 3;
}

struct Contestant {
    const char* name;
    std::vector<std::string> command;
    double target;  // of its time, for us
    bench::Run best{.wall = 1e9};
    bool isThere = true;
};

void keepBest(bench::Run& best, const bench::Run& next, bool isCompared) {
    if (!isCompared || next.wall < best.wall) best = next;
}

void print(const char* name, const bench::Run& run) {
    std::printf("%-14s %8.3f s wall %8.3f s user %8.3f s system", name, run.wall, run.user,
                run.system);
}

int compare(const std::string& folder, int rounds) {
    const std::string disk = bench::diskWithTrees(folder, 1);
    if (disk.empty()) return 1;
    const std::string tree = disk + "/root/opt";
    std::array others{Contestant{"ncdu", {"ncdu", "-0", "-o", "/dev/null", tree}, 0.50},
                      Contestant{"gdu", {"gdu", "-n", "-s", "-p", tree}, 0.33}};
    bench::Run best;
    double inside = 1e9;
    long long memory = 0;
    // The first round warms the caches and is not counted.
    for (int round = 0; round <= rounds; ++round) {
        const bench::Run run = bench::runProgram({self, "--scan", disk});
        Said said;
        if (!read(run, said)) {
            std::fputs("the scan failed\n", stderr);
            return 1;
        }
        keepBest(best, run, round > 1);
        inside = std::min(inside, said.seconds);
        memory = std::max(memory, said.memory);
        for (Contestant& other : others) {
            if (!other.isThere) continue;
            const bench::Run theirs = bench::runProgram(other.command);
            other.isThere = theirs.good;
            keepBest(other.best, theirs, round > 1);
        }
    }
    print("storage scan", best);
    std::printf("   %5lld KiB above start-up; the scan alone %.3f s\n", memory, inside);
    for (const Contestant& other : others) {
        if (!other.isThere) {
            std::printf("%s is missing or failed: install the package %s\n", other.name,
                        other.name);
            continue;
        }
        print(other.name, other.best);
        std::printf("   ratio %.3f (to reach: %.2f)\n", best.wall / other.best.wall, other.target);
    }
    return 0;
}

int compareMemory(const std::string& folder) {
    for (const int trees : {1, 5}) {
        const std::string disk = bench::diskWithTrees(folder, trees);
        if (disk.empty()) return 1;
        long long most = 0;
        for (int round = 0; round < 3; ++round) {
            Said said;
            if (!read(bench::runProgram({self, "--scan", disk}), said)) return 1;
            most = std::max(most, said.memory);
        }
        std::printf("%9d files: at most %lld KiB above start-up\n", trees * 400'000, most);
        std::fflush(stdout);
    }
    return 0;
}

}  // namespace

int main(int count, char** words) {
    const std::vector<std::string> given(words, words + count);
    if (given.size() == 3 && given[1] == "--scan") return runScan(given[2]);
    if (given.size() == 3 && given[1] == "--memory") return compareMemory(given[2]);
    if (given.size() < 2 || given.size() > 3) {
        std::fputs("usage: storage_bench FOLDER [ROUNDS], storage_bench --memory FOLDER\n", stderr);
        return 2;
    }
    const int rounds = given.size() == 3 ? std::atoi(given[2].c_str()) : 0;
    return compare(given[1], std::max(rounds, 5));
}
