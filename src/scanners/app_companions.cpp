#include "scanners/app_companions.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "model/apps.h"
#include "model/letters.h"
#include "model/path_text.h"
#include "scanners/known_app_paths.h"

namespace morvane::CleanupScanner {

namespace {

// Where an application keeps something under its identifier: `folder`/{identifier}`suffix`.
struct IdentifierRow {
    std::string_view kind;
    std::string_view folder;
    std::string_view suffix;
    bool needsContainers = false;
};

constexpr std::array identifierRows{
    IdentifierRow{"Preferences", "Preferences", ".plist"},
    IdentifierRow{"Application Support", "Application Support", ""},
    IdentifierRow{"Caches", "Caches", ""},
    IdentifierRow{"Saved State", "Saved Application State", ".savedState"},
    IdentifierRow{"Web Data", "HTTPStorages", ""},
    IdentifierRow{"Cookies", "HTTPStorages", ".binarycookies"},
    IdentifierRow{"Web Data", "WebKit", ""},
    IdentifierRow{"Cookies", "Cookies", ".binarycookies"},
    IdentifierRow{"Containers", "Containers", "", true},
    IdentifierRow{"Application Scripts", "Application Scripts", "", true},
    IdentifierRow{"Caches", "Caches", ".ShipIt"},
};

// The folders in which applications and their vendors go by name; each is its own kind.
constexpr std::array<std::string_view, 3> namedFolders{"Application Support", "Caches", "Logs"};

// A name that leads to one entry of the folder it is looked for in, and nowhere else.
bool isPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find('/') == std::string_view::npos && name.find('\0') == std::string_view::npos;
}

std::vector<std::string> namesIn(const ScanContext& scan, const std::filesystem::path& folder) {
    Result<std::vector<std::string>> names = scan.platform.files.names(folder);
    return names.ok() ? *std::move(names) : std::vector<std::string>{};
}

void addByIdentifier(const ScanContext& scan, const std::string& id, bool includeContainers,
                     const LibraryNames& names, std::vector<Companion>& found) {
    const std::filesystem::path library = scan.platform.library();
    for (const IdentifierRow& row : identifierRows) {
        if (row.needsContainers && !includeContainers) continue;
        found.push_back(
            {std::string(row.kind), library / row.folder / (id + std::string(row.suffix))});
    }
    for (const KnownAppPath& row : knownAppPaths(id)) {
        found.push_back({std::string(row.kind), library / row.path});
    }
    const std::filesystem::path agents = library / "LaunchAgents";
    for (const std::string& file : names.launchAgents) {
        if (file.starts_with(id) && file.ends_with(".plist")) {
            found.push_back({launchAgentsKind, agents / file});
        }
    }
}

// The second piece of an identifier of at least three, in lower case: "acme" of "com.Acme.Editor".
std::string vendorOf(std::string_view id) {
    std::vector<std::string_view> pieces;
    for (std::size_t start = 0; start < id.size();) {
        const std::size_t end = std::min(id.find('.', start), id.size());
        if (end > start) pieces.push_back(id.substr(start, end - start));
        start = end + 1;
    }
    return pieces.size() < 3 ? std::string{} : lowercased(pieces[1]);
}

// What the vendor's folder holds of this application: all whose name begins with the
// application's, written without blanks, as in "Acme/SuperEdit2024" of Super Edit.
void addFromVendor(const ScanContext& scan, const std::string& vendor, const std::string& squashed,
                   const LibraryNames& names, std::vector<Companion>& found) {
    for (const std::string_view folder : namedFolders) {
        const auto entries = names.vendors.find(folder);
        if (entries == names.vendors.end()) continue;
        const auto own = entries->second.find(vendor);
        if (own == entries->second.end()) continue;
        const std::filesystem::path place = scan.platform.library() / folder / own->second;
        for (const std::string& child : namesIn(scan, place)) {
            if (lowercased(child).starts_with(squashed)) {
                found.push_back({std::string(folder), place / child});
            }
        }
    }
}

std::vector<Companion> existing(const ScanContext& scan, std::vector<Companion> found) {
    std::vector<Companion> kept;
    std::set<std::filesystem::path> seen;
    for (Companion& companion : found) {
        if (!scan.platform.files.exists(companion.url)) continue;
        if (seen.insert(standardised(companion.url)).second) kept.push_back(std::move(companion));
    }
    return kept;
}

}  // namespace

LibraryNames libraryNames(const ScanContext& scan) {
    LibraryNames names;
    names.launchAgents = namesIn(scan, scan.platform.library() / "LaunchAgents");
    for (const std::string_view folder : namedFolders) {
        auto& entries = names.vendors[std::string(folder)];
        for (std::string& name : namesIn(scan, scan.platform.library() / folder)) {
            entries.try_emplace(lowercased(name), name);
        }
    }
    return names;
}

std::vector<Companion> candidatePaths(const ScanContext& scan,
                                      const std::optional<std::string>& bundleID,
                                      const std::string& name, bool includeContainers,
                                      const LibraryNames& library) {
    std::vector<Companion> found;
    const bool hasID = bundleID && isPlainName(*bundleID);
    const bool hasName = isPlainName(name);
    if (hasID) addByIdentifier(scan, *bundleID, includeContainers, library, found);
    if (hasName && characterCount(name) >= 3) {
        for (const std::string_view folder : namedFolders) {
            found.push_back({std::string(folder), scan.platform.library() / folder / name});
        }
    }
    const std::string squashed = lowercased(withoutWhitespace(name));
    const std::string vendor = hasID ? vendorOf(*bundleID) : std::string{};
    if (hasName && characterCount(squashed) > 3 && !vendor.empty()) {
        addFromVendor(scan, vendor, squashed, library, found);
    }
    return existing(scan, std::move(found));
}

}  // namespace morvane::CleanupScanner
