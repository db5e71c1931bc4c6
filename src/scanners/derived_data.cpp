#include "scanners/derived_data.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "model/letters.h"
#include "model/path_text.h"
#include "scanners/dev_item.h"
#include "scanners/frame.h"

namespace morvane::CleanupScanner {

namespace {

constexpr std::int64_t smallestFolder = 1'000'000;
constexpr std::chrono::seconds oneDay{86'400};

// The project's name, without the hash that Xcode adds behind a "-".
std::string projectName(const std::filesystem::path& url) {
    constexpr std::string_view notIndexed = ".noindex";
    constexpr std::int64_t shortestHash = 20;
    const std::string file = url.filename().native();
    std::string_view name = file;
    if (name == "ModuleCache.noindex") return "Module cache";
    if (name.ends_with(notIndexed)) {
        name.remove_suffix(notIndexed.size());
        return nameText(name);
    }
    const std::size_t dash = name.rfind('-');
    if (dash != std::string_view::npos && characterCount(name.substr(dash + 1)) >= shortestHash) {
        name = name.substr(0, dash);
    }
    return nameText(name);
}

std::optional<CleanupItem> derivedDataItem(const ScanContext& scan,
                                           const std::filesystem::path& url) {
    const Measure found = measure(scan, url);
    if (found.bytes < smallestFolder) return std::nullopt;
    // What was built today is about to be built again.
    const bool recent = found.newest && *found.newest > scan.now - oneDay;
    return devItem(scan, "dd:" + pathText(url), projectName(url), url, found,
                   recent ? Safety::review : Safety::regenerates,
                   recent ? "Built today" : usedWords(scan, found));
}

}  // namespace

std::vector<CleanupItem> scanDerivedData(const ScanContext& scan) {
    std::vector<CleanupItem> items;
    for (const std::filesystem::path& child :
         listFolder(scan, scan.platform.library() / "Developer/Xcode/DerivedData")) {
        if (scan.token.stop_requested()) break;
        if (std::optional<CleanupItem> item = derivedDataItem(scan, child)) {
            items.push_back(std::move(*item));
        }
    }
    return sortedBySize(std::move(items));
}

}  // namespace morvane::CleanupScanner
