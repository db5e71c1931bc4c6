// How long the main loop is held up by a full scan.
//
//   morvane-sample-disk /tmp/mac && loop_bench /tmp/mac
//
// Runs a full scan five times on a disk in a folder and prints the longest time that one turn of
// the main loop took, the most processor time that one of them used, which a busy machine does not
// stretch, the 99.9th percentile, and how many turns there were. Aim: under 5 ms.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <memory>
#include <utility>
#include <vector>

#include "driver/program.h"
#include "tasks/context.h"

namespace {

using morvane::driver::Program;

double milliseconds(std::chrono::nanoseconds duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

// Of the calling thread.
std::chrono::nanoseconds processorTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::fputs("usage: loop_bench DISK\n", stderr);
        return 2;
    }
    auto opened = Program::open(words[1]);
    if (const auto* error = std::get_if<std::string>(&opened)) {
        std::fprintf(stderr, "loop_bench: %s\n", error->c_str());
        return 2;
    }
    Program& program = *std::get<std::unique_ptr<Program>>(opened);
    std::vector<std::chrono::nanoseconds> turns;
    std::chrono::nanoseconds used{};      // when the last turn had ended
    std::chrono::nanoseconds mostUsed{};  // by a turn, with the waiting before it
    program.loop().watchTurns([&](std::chrono::nanoseconds turn) {
        turns.push_back(turn);
        const std::chrono::nanoseconds now = processorTime();
        mostUsed = std::max(mostUsed, now - std::exchange(used, now));
    });
    for (int round = 0; round < 5; ++round) {
        const auto work = std::make_shared<morvane::WorkInProgress>();
        {
            const morvane::WorkGuard guard(work);
            program.state().startScan(true);
        }
        const auto begin = std::chrono::steady_clock::now();
        turns.clear();
        used = processorTime();
        mostUsed = {};
        program.loop().runUntil([&] { return work->tasks == 0; });
        const auto whole = std::chrono::steady_clock::now() - begin;
        std::sort(turns.begin(), turns.end());
        const std::size_t nearly = turns.size() - 1 - turns.size() / 1000;
        std::printf(
            "scan %d: %8.1f ms, %6zu turns, longest %.3f ms (processor %.3f ms), 99.9th "
            "percentile %.3f ms\n",
            round + 1, milliseconds(whole), turns.size(), milliseconds(turns.back()),
            milliseconds(mostUsed), milliseconds(turns[nearly]));
    }
    program.finish();
    return 0;
}
