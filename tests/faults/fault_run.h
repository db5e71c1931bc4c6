#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "faults/planned_disk.h"
#include "system/driver_client.h"

namespace morvane::test {

// The threads of the driver by what they do: run the store, write the settings, work.
enum class Crew { main, writer, pool };

// One fault: what happens to the call of this name that each thread of the crew makes as number
// `number` after the request was sent.
struct FaultPoint {
    Crew crew = Crew::main;
    std::string call;
    int number = 1;
    std::string what;  // "error=EIO", "signal=KILL"

    [[nodiscard]] bool kills() const { return what == "signal=KILL"; }
    [[nodiscard]] std::string words() const;
};

// A driver that may die under us.
class FaultedDriver {
public:
    // Starts it and has it store `settings`, so that its writer is at work.
    FaultedDriver(const PlannedDisk& planned, const Json& settings);

    // Nothing when the driver has died.
    std::optional<Json> ask(const Json& request);
    Json get(const std::string& field);
    void scan();
    // Scans, and gives the request that sweeps all that was found.
    [[nodiscard]] Json requestToSweepEverything();
    void sweepEverything();
    [[nodiscard]] std::set<pid_t> threads(Crew crew) const;
    RunningProgram& program() { return program_; }

private:
    RunningProgram program_;
    std::set<pid_t> atStart_;
    std::set<pid_t> writer_;
};

// What is tried with a fault at each of its calls.
struct Scenario {
    std::string name;
    Json settings;
    // Brings a driver to where the request can be sent, and gives the request.
    std::function<Json(PlannedDisk&, FaultedDriver&)> prepare;
    // What holds whatever went wrong, with the driver's own account of it where it is alive.
    std::function<void(const PlannedDisk&, const Json& history)> check;
    // Then another driver on the same disk, for which all has to be as if nothing had been.
    std::function<void(PlannedDisk&, const FaultPoint&)> startAnew;
};

// Finds the calls that the request makes, and runs the scenario with a fault at them, each time on
// a disk of its own. The calls that change the disk or store the settings fail in each of three
// ways and are killed, each of them; of the many that only look some have their turn, each in one
// way. With MORVANE_EVERY_FAULT in the environment every call goes wrong in every way. Prints and
// gives back how many faults really struck.
int runWithFaults(const Scenario& scenario);

}  // namespace morvane::test
