// Every system call of a sweep, of putting back and of deleting, failing and killed from outside.

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>

#include "faults/fault_run.h"
#include "faults/interception.h"
#include "faults/new_start.h"

namespace morvane::test {
namespace {

constexpr int fewestFaults = 50;
const Json toTrash{{"schedule", "weekly"}};
const Json outright{{"schedule", "weekly"}, {"alwaysUseTrash", false}};

// The same cases inside the remover run in any case, in KilledRemover and the tests beside it.
bool cannotIntercept() {
    if (canIntercept()) return false;
    std::cout << "[  NOTE    ] strace is not there or not allowed; only the remover's own calls "
                 "are made to fail and killed\n";
    return true;
}

// An error outside the store of the settings loses no record of what went.
bool keepsRecords(const FaultPoint& point) {
    return !point.kills() && point.crew != Crew::writer;
}

TEST(EveryCall, OfASweepMayFailOrBeKilled) {
    if (cannotIntercept()) return;
    const Scenario scenario{
        "sweep", toTrash,
        [](PlannedDisk&, FaultedDriver& driver) { return driver.requestToSweepEverything(); },
        [](const PlannedDisk& planned, const Json& history) {
            planned.expectOldPlaceOrTrash();
            if (!history.is_array()) return;
            std::set<std::string> recorded;
            for (const Json& entry : history) {
                for (const auto& [original, place] : entry.at("trashed").items()) {
                    recorded.insert(original);
                }
            }
            EXPECT_EQ(recorded, planned.itemsAt(Whereabouts::trash));
        },
        [](PlannedDisk& planned, const FaultPoint& point) {
            expectNewStartWorks(planned, toTrash, keepsRecords(point));
        }};
    EXPECT_GE(runWithFaults(scenario), fewestFaults);
}

TEST(EveryCall, OfPuttingBackMayFailOrBeKilled) {
    if (cannotIntercept()) return;
    const Scenario scenario{
        "putting back", toTrash,
        [](PlannedDisk& planned, FaultedDriver& driver) -> Json {
            driver.sweepEverything();
            // Folders that have to be made again.
            planned.disk.remove("/Users/sam/Library/Logs/only");
            return {{"call", "restore"},
                    {"args", {{"entry", driver.get("history").at(0).at("id")}}}};
        },
        [](const PlannedDisk& planned, const Json& history) {
            planned.expectOldPlaceOrTrash();
            if (!history.is_array()) return;
            std::set<std::string> remaining;
            for (const auto& [original, place] : history.at(0).at("trashed").items()) {
                remaining.insert(original);
            }
            EXPECT_EQ(history.at(0).at("restored"), remaining.empty());
            EXPECT_EQ(remaining, planned.itemsAt(Whereabouts::trash));
        },
        [](PlannedDisk& planned, const FaultPoint&) {
            expectNewStartWorks(planned, toTrash, true);
        }};
    EXPECT_GE(runWithFaults(scenario), fewestFaults);
}

TEST(EveryCall, OfUndoingAMenuBarSweepMayFailOrBeKilled) {
    if (cannotIntercept()) return;
    const Scenario scenario{
        "undoing", toTrash,
        [](PlannedDisk& planned, FaultedDriver& driver) -> Json {
            driver.scan();
            EXPECT_TRUE(driver.ask({{"call", "sweepFromMenuBar"}}));
            planned.disk.remove("/Users/sam/Library/Logs/only");
            return {{"call", "undoMenuBarSweep"}};
        },
        [](const PlannedDisk& planned, const Json&) { planned.expectOldPlaceOrTrash(); },
        [](PlannedDisk& planned, const FaultPoint&) {
            // An undo counts as done whatever became of it, so some may be left in the Trash.
            expectNewStartWorks(planned, toTrash, false);
        }};
    EXPECT_GE(runWithFaults(scenario), fewestFaults);
}

TEST(EveryCall, OfDeletingMayFailOrBeKilled) {
    if (cannotIntercept()) return;
    const Scenario scenario{
        "deleting", outright,
        [](PlannedDisk&, FaultedDriver& driver) { return driver.requestToSweepEverything(); },
        [](const PlannedDisk& planned, const Json&) { planned.expectOldPlaceOrGone(); },
        [](PlannedDisk& planned, const FaultPoint&) {
            DriverClient driver(planned.disk.folder());
            const std::set<std::string> found = scanFor(driver);
            for (const std::string& file : planned.filesLeft()) {
                EXPECT_TRUE(std::any_of(found.begin(), found.end(), [&](const std::string& path) {
                    return file == path || file.starts_with(path + "/");
                })) << file;
            }
            EXPECT_EQ(driver.get("alwaysUseTrash"), false);
            if (!found.empty()) sweepFound(driver);
            EXPECT_EQ(driver.get("sweepProblem"), nullptr);
            EXPECT_EQ(planned.filesLeft(), std::set<std::string>());
            planned.expectOldPlaceOrGone();
        }};
    EXPECT_GE(runWithFaults(scenario), fewestFaults);
}

}  // namespace
}  // namespace morvane::test
