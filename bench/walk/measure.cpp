#include "measure.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace morvane::bench {

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

Run runProgram(const std::vector<std::string>& words) {
    std::vector<std::string> kept = words;
    std::vector<char*> arguments;
    arguments.reserve(kept.size() + 1);
    for (std::string& word : kept) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return {};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addclose(&actions, ends[1]);

    Run run;
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    const bool started =
        ::posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    std::array<char, 4'096> part{};
    for (ssize_t got = 0; started && (got = ::read(ends[0], part.data(), part.size())) > 0;) {
        run.said.append(part.data(), static_cast<std::size_t>(got));
    }
    ::close(ends[0]);
    int status = 0;
    rusage used{};
    if (!started || ::wait4(child, &status, 0, &used) != child) return run;
    run.wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    run.user = seconds(used.ru_utime);
    run.system = seconds(used.ru_stime);
    run.good = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return run;
}

std::int64_t peakMemory() {
    // Not getrusage: that counts what the process held before it became this program.
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) return std::atoll(line.c_str() + 6);
    }
    return 0;
}

}  // namespace morvane::bench
