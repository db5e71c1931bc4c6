#include "window/process_clock.h"

#include <ctime>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <unistd.h>

namespace morvane::bench {
namespace {

std::chrono::nanoseconds read(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

std::chrono::nanoseconds processorTime() {
    return read(CLOCK_PROCESS_CPUTIME_ID);
}

std::chrono::nanoseconds threadTime() {
    return read(CLOCK_THREAD_CPUTIME_ID);
}

std::chrono::nanoseconds sinceStart() {
    std::ifstream file("/proc/self/stat");
    const std::string all((std::istreambuf_iterator<char>(file)), {});
    // The name of the program may hold blanks and brackets; what follows the last one is plain.
    std::istringstream rest(all.substr(all.rfind(')') + 1));
    constexpr int beforeStart = 19;  // proc(5): the start is field 22, two stand before the bracket
    std::string skipped;
    for (int field = 0; field < beforeStart; ++field) rest >> skipped;
    long long ticks = 0;
    rest >> ticks;
    const auto perSecond = static_cast<long long>(::sysconf(_SC_CLK_TCK));
    return read(CLOCK_BOOTTIME) - std::chrono::nanoseconds(ticks * (1'000'000'000 / perSecond));
}

}  // namespace morvane::bench
