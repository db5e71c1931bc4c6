#include "scanners/simulators.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "model/path_text.h"
#include "scanners/dev_item.h"
#include "scanners/frame.h"
#include "scanners/runtimes.h"

namespace morvane::CleanupScanner {

namespace {

constexpr std::array<std::string_view, 5> devicePlatforms{"iOS", "watchOS", "tvOS", "visionOS",
                                                          "macOS"};
constexpr std::chrono::seconds toolLimit{30};

bool xcodeInstalled(const ScanContext& scan) {
    const auto listed = scan.platform.files.list("/Applications", Hidden::included);
    if (!listed.ok()) return false;
    return std::any_of(listed->begin(), listed->end(), [](const ListedEntry& entry) {
        const std::string name = entry.path.filename().native();
        return name.starts_with("Xcode") && name.ends_with(".app");
    });
}

std::vector<CleanupItem> simulatorRuntimes(const ScanContext& scan) {
    // Without Xcode, xcrun would ask the user to install the developer tools.
    if (!xcodeInstalled(scan)) return {};
    const auto output =
        toolOutput(scan, simulatorTool, {"simctl", "runtime", "list", "-j"}, toolLimit);
    return output ? runtimeItems(runtimesIn(*output)) : std::vector<CleanupItem>{};
}

void addDeviceSupport(const ScanContext& scan, std::vector<CleanupItem>& items) {
    for (const std::string_view platform : devicePlatforms) {
        const std::string folder = std::string(platform) + " DeviceSupport";
        for (const std::filesystem::path& child :
             listFolder(scan, scan.platform.library() / "Developer/Xcode" / folder)) {
            if (scan.token.stop_requested()) return;
            const Measure found = measure(scan, child);
            if (found.bytes < 1) continue;
            items.push_back(devItem(
                scan, "ds:" + pathText(child),
                std::string(platform) + " " + nameText(child.filename()) + " device support", child,
                found, Safety::regenerates, usedWords(scan, found)));
        }
    }
}

// The children go, and the folder stays where the simulators expect it.
void addCaches(const ScanContext& scan, std::vector<CleanupItem>& items) {
    const std::filesystem::path folder = scan.platform.library() / "Developer/CoreSimulator/Caches";
    const Measure found = measure(scan, folder);
    if (found.bytes < 1) return;
    std::vector<CleanupPart> parts;
    for (const std::filesystem::path& child : listFolder(scan, folder)) {
        if (scan.token.stop_requested()) return;
        const Measure part = measure(scan, child);
        parts.push_back({child, part.bytes, part.folder});
    }
    CleanupItem item = devItem(scan, "simcache", "Simulator caches", folder, found,
                               Safety::regenerates, usedWords(scan, found));
    item.action = TrashAction{std::move(parts)};
    items.push_back(std::move(item));
}

}  // namespace

std::vector<CleanupItem> scanSimulators(const ScanContext& scan) {
    std::vector<CleanupItem> items = simulatorRuntimes(scan);
    addDeviceSupport(scan, items);
    addCaches(scan, items);
    return sortedBySize(std::move(items));
}

}  // namespace morvane::CleanupScanner
