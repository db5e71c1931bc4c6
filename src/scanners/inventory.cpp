#include "scanners/inventory.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "model/path_text.h"
#include "scanners/app_companions.h"
#include "scanners/frame.h"
#include "scanners/read_plist.h"

namespace morvane::CleanupScanner {

namespace {

// The kinds that change when the application is used. Caches and web data change by themselves.
constexpr std::array<std::string_view, 5> lastUsedKinds{"Preferences", "Application Support",
                                                        "Saved State", "Logs", "Containers"};

bool isSignOfUse(std::string_view kind) {
    return std::find(lastUsedKinds.begin(), lastUsedKinds.end(), kind) != lastUsedKinds.end();
}

bool isBundle(const ListedEntry& entry) {
    return entry.path.extension() == ".app";
}

std::vector<ListedEntry> visibleEntries(const ScanContext& scan,
                                        const std::filesystem::path& folder) {
    Result<std::vector<ListedEntry>> listed = scan.platform.files.list(folder, Hidden::skipped);
    return listed.ok() ? std::move(*listed) : std::vector<ListedEntry>{};
}

void takeBundle(ListedEntry& entry, std::vector<std::filesystem::path>& bundles) {
    if (entry.attributes.kind != EntryKind::link) bundles.push_back(std::move(entry.path));
}

PropertyList bundleInfo(const ScanContext& scan, const std::filesystem::path& url) {
    return readPlist(scan, url / "Contents/Info.plist");
}

// The applications that ship with macOS cannot be removed; those of Apple that came from the store
// carry its receipt.
bool isOffered(const ScanContext& scan, const std::filesystem::path& url,
               const std::optional<std::string>& bundleID) {
    if (!bundleID) return true;
    if (bundleID == scan.platform.bundle.identifier) return false;
    return !bundleID->starts_with("com.apple.") ||
           scan.platform.files.exists(url / "Contents/_MASReceipt");
}

std::string displayName(const ScanContext& scan, const std::filesystem::path& url) {
    constexpr std::string_view extension = ".app";
    std::string name = scan.platform.files.displayName(url);
    if (name.ends_with(extension)) name.resize(name.size() - extension.size());
    return name;
}

std::string versionIn(const PropertyList& info) {
    std::optional<std::string> version = textIn(info, "CFBundleShortVersionString");
    if (!version) version = textIn(info, "CFBundleVersion");
    return std::move(version).value_or("—");
}

}  // namespace

std::vector<std::filesystem::path> listApplications(const ScanContext& scan) {
    std::vector<std::filesystem::path> bundles;
    for (const std::filesystem::path& root :
         {std::filesystem::path("/Applications"), scan.platform.home / "Applications"}) {
        for (ListedEntry& entry : visibleEntries(scan, root)) {
            if (isBundle(entry)) {
                takeBundle(entry, bundles);
            } else if (entry.attributes.kind == EntryKind::folder && !entry.attributes.isPackage) {
                for (ListedEntry& inner : visibleEntries(scan, entry.path)) {
                    if (isBundle(inner)) takeBundle(inner, bundles);
                }
            }
        }
    }
    return bundles;
}

InstalledAppIndex installedAppIndex(const ScanContext& scan) {
    InstalledAppIndex index;
    for (const std::filesystem::path& url : listApplications(scan)) {
        if (auto id = textIn(bundleInfo(scan, url), "CFBundleIdentifier")) {
            index.bundleIDs.insert(std::move(*id));
        }
        index.names.push_back(nameText(url.stem()));
    }
    return index;
}

std::optional<InstalledApp> loadApp(const ScanContext& scan, const std::filesystem::path& url,
                                    bool includeContainers, const LibraryNames& library) {
    const PropertyList info = bundleInfo(scan, url);
    InstalledApp app{.url = url, .bundleID = textIn(info, "CFBundleIdentifier")};
    if (!isOffered(scan, url, app.bundleID)) return std::nullopt;
    app.name = displayName(scan, url);
    app.version = versionIn(info);
    const Measure bundle = measure(scan, url);
    app.parts.push_back({"Application", url, bundle.bytes, false, bundle.folder});
    if (scan.token.stop_requested()) return std::nullopt;

    app.lastUsed = spotlightLastUsed(scan, url);
    for (Companion& companion :
         candidatePaths(scan, app.bundleID, app.name, includeContainers, library)) {
        const Measure found = measure(scan, companion.url);
        if (isSignOfUse(companion.kind)) app.lastUsed = std::max(app.lastUsed, found.newest);
        app.parts.push_back({std::move(companion.kind), std::move(companion.url), found.bytes,
                             found.isUnreadable, found.folder});
    }
    if (app.lastUsed) app.lastUsed = std::min(*app.lastUsed, scan.now);
    return app;
}

std::optional<Instant> spotlightLastUsed(const ScanContext& scan,
                                         const std::filesystem::path& url) {
    const auto item = scan.platform.metadata.item(url);
    return item ? item->lastUsed : std::nullopt;
}

}  // namespace morvane::CleanupScanner
