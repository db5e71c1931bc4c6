#include "faults/fault_run.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <thread>

#include "faults/interception.h"

namespace morvane::test {

namespace {

#ifdef MORVANE_SANITIZED
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

constexpr std::array crews{Crew::main, Crew::writer, Crew::pool};
constexpr int killed = 1000 + 9;

// They reach no disk: memory, threads, clocks, and who we are.
const std::set<std::string> apart{
    "futex",           "mmap",        "mprotect",   "munmap",
    "madvise",         "mremap",      "brk",        "rt_sigprocmask",
    "rt_sigaction",    "sigaltstack", "clone",      "clone3",
    "set_robust_list", "rseq",        "exit",       "poll",
    "exit_group",      "sched_yield", "nanosleep",  "clock_nanosleep",
    "getpid",          "gettid",      "tgkill",     "clock_gettime",
    "geteuid",         "getuid",      "membarrier", "sched_getaffinity",
    "restart_syscall", "prctl"};

const std::set<std::string> changing{"renameat2", "renameat", "mkdirat",   "unlinkat",
                                     "write",     "fsync",    "getdents64"};

// So many calls of a name that only looks have their turn.
constexpr int looksTried = 10;

bool wantsEveryFault() {
    return std::getenv("MORVANE_EVERY_FAULT") != nullptr;  // NOLINT(concurrency-mt-unsafe)
}

std::vector<int> someOf(int count) {
    std::vector<int> numbers;
    const int tries = std::min(count, looksTried);
    for (int i = 0; i < tries; ++i) {
        numbers.push_back(1 + (tries == 1 ? 0 : i * (count - 1) / (tries - 1)));
    }
    return numbers;
}

void addPoints(Crew crew, const std::string& call, int count, std::vector<FaultPoint>& points) {
    const std::vector<std::string> ways{"error=EIO", "signal=KILL", "error=ENOSPC", "error=EACCES"};
    if (changing.contains(call) || wantsEveryFault()) {
        for (int number = 1; number <= count; ++number) {
            for (const std::string& way : ways) points.push_back({crew, call, number, way});
        }
        return;
    }
    std::size_t turn = 0;
    for (const int number : someOf(count)) {
        points.push_back({crew, call, number, ways[turn++ % ways.size()]});
    }
}

// The disk, the driver on it, and strace at some of its threads.
struct Attempt {
    explicit Attempt(const Scenario& scenario)
        : driver(planned, scenario.settings), request(scenario.prepare(planned, driver)) {}
    [[nodiscard]] std::string record() const { return (planned.disk.folder() / "record").native(); }

    PlannedDisk planned;
    FaultedDriver driver;
    Json request;
};

std::vector<FaultPoint> findPoints(const Scenario& scenario) {
    Attempt attempt(scenario);
    std::map<Crew, std::set<pid_t>> threadsBy;
    std::set<pid_t> threads;
    for (const Crew crew : crews) {
        threadsBy[crew] = attempt.driver.threads(crew);
        threads.insert(threadsBy[crew].begin(), threadsBy[crew].end());
    }
    Interception interception(Interception::all(), threads, attempt.record());
    EXPECT_TRUE(interception.isAttached());
    EXPECT_TRUE(attempt.driver.ask(attempt.request));
    attempt.driver.program().kill();
    const auto counts = countCalls(interception.finish());

    std::vector<FaultPoint> points;
    for (const Crew crew : crews) {
        // Any thread of the pool may be the one that works next time.
        std::map<std::string, int> most;
        for (const pid_t thread : threadsBy[crew]) {
            if (!counts.contains(thread)) continue;
            for (const auto& [call, count] : counts.at(thread)) {
                most[call] = std::max(most[call], count);
            }
        }
        for (const auto& [call, count] : most) {
            // The main thread writes answers alone.
            if (apart.contains(call) || (crew == Crew::main && call == "write")) continue;
            // The sanitizers' runtime finds out by writes to a pipe of its own what memory it may
            // read, and ends the program when that fails in another way than it knows.
            if (isSanitized && (call == "write" || call == "pipe2")) continue;
            addPoints(crew, call, count, points);
        }
    }
    return points;
}

// Whether the fault struck.
bool runWith(const Scenario& scenario, const FaultPoint& point) {
    SCOPED_TRACE(scenario.name + ": " + point.words());
    Attempt attempt(scenario);
    RunningProgram& program = attempt.driver.program();
    Interception interception(Interception::one(point.call, point.number, point.what),
                              attempt.driver.threads(point.crew), attempt.record());
    EXPECT_TRUE(interception.isAttached());
    const std::optional<Json> answer = attempt.driver.ask(attempt.request);
    const Json history = answer ? attempt.driver.get("history") : Json();
    const int status = program.end();
    const bool struck =
        interception.finish().find("(INJECTED)") != std::string::npos || status == killed;
    if (point.kills()) {
        EXPECT_TRUE(status == 0 || status == killed) << status;
    } else {
        EXPECT_EQ(status, 0);
        EXPECT_TRUE(answer && answer->contains("result"));
        EXPECT_EQ(program.errors(), "");
    }
    scenario.check(attempt.planned, history);
    attempt.planned.expectRestUntouched();
    scenario.startAnew(attempt.planned, point);
    attempt.planned.expectRestUntouched();
    return struck;
}

}  // namespace

std::string FaultPoint::words() const {
    static const std::map<Crew, std::string> names{
        {Crew::main, "main"}, {Crew::writer, "writer"}, {Crew::pool, "pool"}};
    return names.at(crew) + ", " + call + " " + std::to_string(number) + ", " + what;
}

FaultedDriver::FaultedDriver(const PlannedDisk& planned, const Json& settings)
    // The leak checker cannot work beside strace.
    : program_({MORVANE_DRIVER, "--disk", planned.disk.folder().native()},
               {"ASAN_OPTIONS=detect_leaks=0"}) {
    EXPECT_TRUE(ask({{"get", {"schedule"}}}));
    atStart_ = threadsOf(program_.process());
    EXPECT_TRUE(ask({{"set", settings}}));
    for (const pid_t thread : threadsOf(program_.process())) {
        if (!atStart_.contains(thread)) writer_.insert(thread);
    }
    EXPECT_EQ(writer_.size(), 1U);
}

std::optional<Json> FaultedDriver::ask(const Json& request) {
    if (!program_.write(request.dump() + "\n")) return std::nullopt;
    const std::optional<std::string> line = program_.readLine();
    if (!line) return std::nullopt;
    return Json::parse(*line, nullptr, false);
}

Json FaultedDriver::get(const std::string& field) {
    const std::optional<Json> answer = ask({{"get", {field}}});
    return answer ? answer->at(field) : Json();
}

void FaultedDriver::scan() {
    EXPECT_TRUE(ask({{"call", "startScan"}, {"args", {{"showOverview", true}}}}));
}

Json FaultedDriver::requestToSweepEverything() {
    scan();
    Json ids = Json::array();
    for (const Json& item : get("sweepItems")) ids.push_back(item.at("id"));
    return {{"call", "sweep"}, {"args", {{"items", ids}}}};
}

void FaultedDriver::sweepEverything() {
    EXPECT_TRUE(ask(requestToSweepEverything()));
}

std::set<pid_t> FaultedDriver::threads(Crew crew) const {
    if (crew == Crew::main) return {program_.process()};
    if (crew == Crew::writer) return writer_;
    std::set<pid_t> pool;
    for (const pid_t thread : threadsOf(program_.process())) {
        if (!atStart_.contains(thread) && !writer_.contains(thread)) pool.insert(thread);
    }
    return pool;
}

int runWithFaults(const Scenario& scenario) {
    const std::vector<FaultPoint> points = findPoints(scenario);
    std::atomic<std::size_t> next = 0;
    std::atomic<int> struck = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < points.size(); i = next++) {
            if (runWith(scenario, points[i])) ++struck;
        }
    };
    std::thread helper(work);
    work();
    helper.join();
    std::cout << "[  NOTE    ] " << scenario.name << ": " << struck << " faults struck, of "
              << points.size() << " tried\n";
    return struck;
}

}  // namespace morvane::test
