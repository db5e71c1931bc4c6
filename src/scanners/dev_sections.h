#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "model/cleanup.h"
#include "scanners/archives.h"
#include "scanners/derived_data.h"
#include "scanners/docker.h"
#include "scanners/package_caches.h"
#include "scanners/scan_context.h"
#include "scanners/simulators.h"

namespace morvane::CleanupScanner {

// One section of the Developer screen and the scanner that fills it. The scanners share nothing
// and may run side by side.
struct DevScanner {
    std::string_view id;
    std::string_view name;
    std::string_view icon;
    std::string_view subtitle;
    std::vector<CleanupItem> (*scan)(const ScanContext&);
};

inline constexpr std::array devScanners{
    DevScanner{"dd", "Xcode DerivedData", "hammer",
               "Build files Xcode recreates the next time you build.", scanDerivedData},
    DevScanner{"sim", "Simulators & Devices", "iphone",
               "Simulator runtimes and device files. Xcode can download them again.",
               scanSimulators},
    DevScanner{"arc", "Archives", "archivebox",
               "Builds you shipped. Keep any you still need crash reports for.", scanArchives},
    DevScanner{"pkg", "Package caches", "shippingbox",
               "Downloaded packages kept for quicker installs. Fetched again when needed.",
               scanPackageCaches},
    DevScanner{"dock", "Docker", "cube.transparent",
               "Images, build cache and volumes no container is using.", scanDocker},
};

// What the scanners found, in the order of devScanners.
using DevFindings = std::array<std::vector<CleanupItem>, devScanners.size()>;

// The sections in the order of devScanners, without those in which nothing was found.
[[nodiscard]] std::vector<DevSection> assembleDevSections(DevFindings found);

}  // namespace morvane::CleanupScanner
