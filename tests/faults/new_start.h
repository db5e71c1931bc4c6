#pragma once

#include <set>
#include <string>

#include "faults/planned_disk.h"
#include "system/driver_client.h"

namespace morvane::test {

// The paths that a scan by this driver offers to sweep.
std::set<std::string> scanFor(DriverClient& driver);

// Sweeps all that the driver has found.
void sweepFound(DriverClient& driver);

// Puts back every entry of the history that can be; gives the paths that the entries told of.
std::set<std::string> restoreAll(DriverClient& driver);

// A driver started on this disk restores what its history tells of, finds exactly the items that
// stand at their old places, sweeps them, and puts them back. Where `isRecorded`, everything is at
// its old place after the first of these.
void expectNewStartWorks(PlannedDisk& planned, const Json& settings, bool isRecorded);

}  // namespace morvane::test
