#include "scanners/leftovers.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "model/letters.h"
#include "model/words.h"
#include "scanners/frame.h"
#include "scanners/protected_names.h"

namespace morvane::CleanupScanner {

namespace {

// A folder of Library that is named by applications' identifiers. With a suffix, names with that
// ending alone are looked at, and what stands before it is the identifier.
struct Place {
    std::string_view folder;
    std::string_view suffix;
};

constexpr std::string_view containers = "Containers";

constexpr std::array leftoverPlaces{
    Place{"Application Support", ""},
    Place{"Caches", ""},
    Place{"Caches", ".ShipIt"},
    Place{"Preferences", ".plist"},
    Place{"Saved Application State", ".savedState"},
    Place{"HTTPStorages", ""},
    Place{"HTTPStorages", ".binarycookies"},
    Place{"WebKit", ""},
    Place{"Logs", ""},
    Place{"Cookies", ".binarycookies"},
    Place{"Application Scripts", ""},
    Place{containers, ""},
};

constexpr std::int64_t smallestGroup = 1'000'000;

// By identifier, in the spelling of the name it was found by.
using Groups = std::map<std::string, std::vector<std::filesystem::path>>;

// "com.acme" of "com.Acme.Editor"; empty for an identifier of one piece.
std::string vendorKey(std::string_view bundleID) {
    const std::string lower = lowercased(bundleID);
    std::string key;
    int pieces = 0;
    for (std::size_t start = 0; start < lower.size() && pieces < 2;) {
        const std::size_t end = std::min(lower.find('.', start), lower.size());
        if (end > start) {
            if (pieces++ > 0) key += '.';
            key.append(lower, start, end - start);
        }
        start = end + 1;
    }
    return pieces == 2 ? key : std::string{};
}

std::set<std::string> vendorKeys(const std::set<std::string>& installedIDs) {
    std::set<std::string> keys;
    for (const std::string& id : installedIDs) keys.insert(vendorKey(id));
    keys.erase(std::string{});
    return keys;
}

// The identifier that a name in `place` may stand for.
std::optional<std::string_view> candidateID(const Place& place, std::string_view file) {
    if (!place.suffix.empty()) {
        if (!file.ends_with(place.suffix)) return std::nullopt;
        file.remove_suffix(place.suffix.size());
        return file;
    }
    const bool isOfASuffixRow = file.find(".plist") != std::string_view::npos ||
                                file.ends_with(".ShipIt") || file.ends_with(".binarycookies");
    return isOfASuffixRow ? std::nullopt : std::optional(file);
}

class OrphanTest {
public:
    OrphanTest(const ScanContext& scan, const std::set<std::string>& installedIDs)
        : vendors_(vendorKeys(installedIDs)),
          ownID_(scan.platform.bundle.identifier.value_or("")) {}

    [[nodiscard]] bool passes(std::string_view id, std::string_view file) const {
        return looksLikeBundleID(id) && !lowercased(id).starts_with("com.apple.") && id != ownID_ &&
               !isProtectedCacheName(file) && !vendors_.contains(vendorKey(id));
    }

private:
    std::set<std::string> vendors_;
    std::string ownID_;
};

Groups orphans(const ScanContext& scan, const OrphanTest& test, bool includeContainers) {
    Groups groups;
    for (const Place& place : leftoverPlaces) {
        if (place.folder == containers && !includeContainers) continue;
        for (std::filesystem::path& child :
             listFolder(scan, scan.platform.library() / place.folder)) {
            const std::string file = child.filename().native();
            const std::optional<std::string_view> id = candidateID(place, file);
            if (id && test.passes(*id, file)) groups[std::string(*id)].push_back(std::move(child));
        }
    }
    return groups;
}

// An application may lie where the inventory does not look: on the desktop, on another volume.
bool isStillInstalled(const ScanContext& scan, const std::string& id) {
    const auto url = scan.platform.workspace.applicationURL(id);
    return url && scan.platform.files.exists(*url);
}

std::string lastChangedWords(const ScanContext& scan, std::optional<Instant> date) {
    if (!date) return {};
    return " Last changed " + relativeDayWords(date, scan.now, scan.platform.region) + ".";
}

std::optional<CleanupItem> leftoverItem(const ScanContext& scan, const std::string& id,
                                        const std::vector<std::filesystem::path>& urls) {
    std::vector<CleanupPart> parts;
    std::optional<Instant> newest;
    for (const std::filesystem::path& url : urls) {
        const Measure found = measure(scan, url);
        parts.push_back({url, found.bytes, found.folder});
        newest = std::max(newest, found.newest);
    }
    const std::int64_t bytes = totalBytes(parts);
    if (bytes < smallestGroup) return std::nullopt;
    const std::string pretty = prettyAppName(id);
    std::string location = shortened(scan, urls.front());
    if (urls.size() > 1) location += " · +" + std::to_string(urls.size() - 1) + " more";
    return CleanupItem{
        .id = "leftover:" + id,
        .name = pretty + " (app was removed)",
        .bytes = bytes,
        .safety = Safety::review,
        .location = std::move(location),
        .explanation = "Settings and data left behind by " + pretty + " (" + id +
                       "), which is no longer installed." + lastChangedWords(scan, newest) +
                       " If you might reinstall it someday, you may want to keep these.",
        .lastUsed = {},
        .revealURL = urls.front(),
        .action = TrashAction{std::move(parts)}};
}

}  // namespace

std::vector<CleanupItem> scanLeftovers(const ScanContext& scan,
                                       const std::set<std::string>& installedIDs,
                                       bool includeContainers) {
    std::vector<CleanupItem> items;
    const Groups groups = orphans(scan, OrphanTest(scan, installedIDs), includeContainers);
    for (const auto& [id, urls] : groups) {
        if (scan.token.stop_requested()) break;
        if (isStillInstalled(scan, id)) continue;
        if (std::optional<CleanupItem> item = leftoverItem(scan, id, urls)) {
            items.push_back(std::move(*item));
        }
    }
    return sortedBySize(std::move(items));
}

}  // namespace morvane::CleanupScanner
