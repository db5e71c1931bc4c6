#include "scanners/crumbs.h"

#include <array>
#include <string_view>
#include <utility>

#include "model/words.h"
#include "scanners/frame.h"
#include "scanners/old_files.h"
#include "scanners/protected_names.h"

namespace morvane::CleanupScanner {

namespace {

struct Browser {
    std::string_view path;  // under Library
    std::string_view bundleID;
};

// One browser may have two rows: its cache can live in either place.
constexpr std::array browsers{
    Browser{"Caches/com.apple.Safari", "com.apple.Safari"},
    Browser{"Caches/Google/Chrome", "com.google.Chrome"},
    Browser{"Caches/BraveSoftware/Brave-Browser", "com.brave.Browser"},
    Browser{"Caches/Firefox", "org.mozilla.firefox"},
    Browser{"Caches/Mozilla/Firefox", "org.mozilla.firefox"},
    Browser{"Caches/Microsoft Edge", "com.microsoft.edgemac"},
    Browser{"Caches/com.operasoftware.Opera", "com.operasoftware.Opera"},
    Browser{"Caches/company.thebrowser.Browser", "company.thebrowser.Browser"},
    Browser{"Caches/com.vivaldi.Vivaldi", "com.vivaldi.Vivaldi"},
};

constexpr std::chrono::seconds oldLogAge{2'592'000};

std::string countOf(const std::vector<CleanupPart>& parts, std::string_view noun) {
    return countText(static_cast<std::int64_t>(parts.size()), noun);
}

bool isRunning(const std::set<std::string>& running, std::string_view id) {
    return running.contains(std::string(id));
}

// Whether a folder of "Caches" is an application's that nobody has open and nobody else offers.
bool isClearableCache(const std::string& name, const std::string& ownID,
                      const std::set<std::string>& running) {
    constexpr std::string_view updater = ".ShipIt";
    if (name.starts_with("com.apple.") || isProtectedCacheName(name)) return false;
    std::string_view app = name;
    if (app.ends_with(updater)) app.remove_suffix(updater.size());
    return !isRunning(running, app) && !name.starts_with(ownID);
}

CleanupItem applicationCaches(const ScanContext& scan, const std::set<std::string>& running) {
    const std::filesystem::path folder = scan.platform.library() / "Caches";
    const std::string ownID = scan.platform.bundle.identifier.value_or("Morvane");
    std::vector<std::filesystem::path> kept;
    for (std::filesystem::path& child : listFolder(scan, folder)) {
        if (isClearableCache(child.filename().native(), ownID, running)) {
            kept.push_back(std::move(child));
        }
    }
    std::vector<CleanupPart> parts = measureParts(scan, kept);
    return {.id = "caches",
            .name = "App caches",
            .bytes = totalBytes(parts),
            .safety = Safety::safe,
            .location = "~/Library/Caches · " + countOf(parts, "app"),
            .explanation =
                "Temporary files apps keep so things load faster. Apps quietly rebuild whatever "
                "they need, so clearing these is harmless. The first launch afterwards may be a "
                "touch slower. Caches of apps that are open right now are left alone.",
            .lastUsed = {},
            .revealURL = folder,
            .action = TrashAction{std::move(parts)}};
}

CleanupItem browserCaches(const ScanContext& scan, const std::set<std::string>& running) {
    std::vector<std::filesystem::path> found;
    for (const Browser& browser : browsers) {
        if (isRunning(running, browser.bundleID)) continue;
        std::filesystem::path url = scan.platform.library() / browser.path;
        if (scan.platform.files.exists(url)) found.push_back(std::move(url));
    }
    std::vector<CleanupPart> parts = measureParts(scan, found);
    std::string location;
    for (const CleanupPart& part : parts) {
        if (!location.empty()) location += " · ";
        location += shortened(scan, part.url);
    }
    CleanupItem item{
        .id = "browsers",
        .name = "Browser caches",
        .bytes = totalBytes(parts),
        .safety = Safety::safe,
        .location = std::move(location),
        .explanation =
            "Saved copies of images and pages from sites you’ve visited. Bookmarks, passwords and "
            "history are not touched. Browsers that are open are left alone.",
        .lastUsed = {},
        .revealURL = {},
        .action = {}};
    if (!parts.empty()) item.revealURL = parts.front().url;
    item.action = TrashAction{std::move(parts)};
    return item;
}

CleanupItem oldLogs(const ScanContext& scan) {
    const std::filesystem::path folder = scan.platform.library() / "Logs";
    std::vector<CleanupPart> parts = oldFiles(scan, folder, scan.now - oldLogAge);
    return {.id = "logs",
            .name = "Old log files",
            .bytes = totalBytes(parts),
            .safety = Safety::safe,
            .location = "~/Library/Logs · " + countOf(parts, "file"),
            .explanation =
                "Notes apps and macOS write while running, mostly useful for troubleshooting, plus "
                "old crash reports. Only logs older than 30 days are included.",
            .lastUsed = {},
            .revealURL = folder,
            .action = TrashAction{std::move(parts)}};
}

}  // namespace

std::vector<CleanupItem> scanCrumbs(const ScanContext& scan, const std::set<std::string>& running) {
    std::vector<CleanupItem> items;
    items.push_back(applicationCaches(scan, running));
    items.push_back(browserCaches(scan, running));
    items.push_back(oldLogs(scan));
    std::erase_if(items, [](const CleanupItem& item) { return item.bytes < 1; });
    return items;
}

}  // namespace morvane::CleanupScanner
