#pragma once

#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// Simulator runtimes, the files Xcode copied from devices, and the simulators' caches, largest
// first. Without Xcode no tool is run, and the files alone are looked at.
[[nodiscard]] std::vector<CleanupItem> scanSimulators(const ScanContext& scan);

}  // namespace morvane::CleanupScanner
