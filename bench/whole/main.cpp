// What a full scan, the disk usage and the storage map together cost on one disk:
//
//   morvane-sample-disk /tmp/mac --entries 1000000 && whole_bench /tmp/mac [ROUNDS]
//
// Runs all three at once, as a first look at a disk does, in turns with one bare walk of the same
// disk (two threads, nothing but listing and asking sizes), at least five rounds, and compares the
// minima. Then, once and untimed, counts the entries that were looked at against those there are.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <variant>

#include "bare_loop.h"
#include "core/app_state.h"
#include "counting_files.h"
#include "platform/folder/folder_platform.h"
#include "tasks/event_loop.h"

namespace {

using namespace morvane;  // NOLINT(google-build-using-namespace)

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// A fresh start of the program on the disk, with nothing stored, and all that it can measure.
double wholeLook(folder::FolderPlatform& system, EventLoop& loop, const FileSystem& files) {
    const Platform whole = system.platform();
    const Platform platform{files,          whole.processes,     whole.workspace,
                            whole.metadata, whole.notifications, whole.volume,
                            whole.bundle,   whole.region,        whole.home};
    Pool pool;
    const auto state =
        AppState::create({Runtime{loop, pool}, platform, system.remover(), system.defaults()});
    const auto start = std::chrono::steady_clock::now();
    state->refreshDisk();
    state->scanStorage(true);
    state->startScan(true);
    loop.runUntil([&] { return state->isIdle(); });
    return secondsSince(start);
}

std::int64_t entriesBelow(const FileSystem& files) {
    const bench::CountingFiles counting(files);
    static_cast<void>(counting.treeSize("/", false, StopToken()));
    return counting.entries();
}

}  // namespace

int main(int count, char** words) {
    if (count < 2 || count > 3) {
        std::fputs("usage: whole_bench DISK [ROUNDS]\n", stderr);
        return 2;
    }
    const std::string disk = words[1];
    const int rounds = std::max(5, count == 3 ? std::atoi(words[2]) : 0);
    auto opened = folder::FolderPlatform::open(disk);
    if (const auto* error = std::get_if<std::string>(&opened)) {
        std::fprintf(stderr, "whole_bench: %s\n", error->c_str());
        return 2;
    }
    folder::FolderPlatform& system = *std::get<std::unique_ptr<folder::FolderPlatform>>(opened);
    EventLoop loop;
    system.start(loop);
    const FileSystem& files = system.platform().files;

    double whole = 1e9;
    double bare = 1e9;
    for (int round = 0; round <= rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        static_cast<void>(bench::bareLoop(disk + "/root"));
        const double bareTook = secondsSince(start);
        const double wholeTook = wholeLook(system, loop, files);
        if (round == 0) continue;  // warms the caches
        bare = std::min(bare, bareTook);
        whole = std::min(whole, wholeTook);
    }
    const bench::CountingFiles counting(files);
    wholeLook(system, loop, counting);
    const std::int64_t there = entriesBelow(files);
    std::printf("full scan, disk usage and storage %.3f s, one bare walk %.3f s: %.2f of it\n",
                whole, bare, whole / bare);
    std::printf("entries looked at %lld of %lld there are: %.2f\n",
                static_cast<long long>(counting.entries()), static_cast<long long>(there),
                static_cast<double>(counting.entries()) / static_cast<double>(there));
    return 0;
}
