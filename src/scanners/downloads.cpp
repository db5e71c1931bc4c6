#include "scanners/downloads.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "model/letters.h"
#include "model/words.h"
#include "scanners/frame.h"

namespace morvane::CleanupScanner {

namespace {

constexpr std::array<std::string_view, 3> installerExtensions{".dmg", ".pkg", ".mpkg"};

bool isInstaller(const std::filesystem::path& url) {
    const std::string extension = lowercased(url.extension().native());
    return std::find(installerExtensions.begin(), installerExtensions.end(), extension) !=
           installerExtensions.end();
}

std::string_view beforeFirstNumber(std::string_view text) {
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t position = text.size() - rest.size();
        if (isNumber(takeCharacter(rest))) return text.substr(0, position);
    }
    return text;
}

// A file name begins with the product's name, and a version or an edition follows.
std::string keyOf(const std::filesystem::path& url) {
    return normalisedName(beforeFirstNumber(url.stem().native()));
}

// Names too short to tell applications apart are left out: "go" begins a great many words.
std::vector<std::string> comparableNames(const std::vector<std::string>& appNames) {
    std::vector<std::string> names;
    for (const std::string& name : appNames) {
        std::string normalised = normalisedName(name);
        if (characterCount(normalised) >= 3) names.push_back(std::move(normalised));
    }
    return names;
}

bool isInstalled(const std::string& key, const std::vector<std::string>& names) {
    const std::int64_t length = characterCount(key);
    if (length <= 2) return false;
    return std::any_of(names.begin(), names.end(), [&](const std::string& app) {
        return key.starts_with(app) || (length >= 4 && app.starts_with(key));
    });
}

CleanupItem installersItem(std::vector<CleanupPart> parts) {
    return {
        .id = {},
        .name = {},
        .bytes = totalBytes(parts),
        .safety = Safety::review,
        .location = "~/Downloads · " + countText(static_cast<std::int64_t>(parts.size()), "file"),
        .explanation = {},
        .lastUsed = {},
        .revealURL = parts.front().url,
        .action = TrashAction{std::move(parts)}};
}

CleanupItem usedInstallers(std::vector<CleanupPart> parts) {
    CleanupItem item = installersItem(std::move(parts));
    item.id = "installers";
    item.name = "Installers you’ve already used (.dmg, .pkg)";
    item.safety = Safety::safe;
    item.explanation =
        "Installers for apps that are already in your Applications folder. Once an app is "
        "installed, its installer isn’t needed.";
    return item;
}

CleanupItem otherInstallers(std::vector<CleanupPart> parts) {
    CleanupItem item = installersItem(std::move(parts));
    item.id = "otherInstallers";
    item.name = "Other installers (.dmg, .pkg)";
    item.explanation =
        "Installers for apps Morvane couldn’t find in your Applications folder. You may not have "
        "installed them yet, so take a look first.";
    return item;
}

CleanupItem mailAttachments(const ScanContext& scan) {
    std::filesystem::path folder =
        scan.platform.library() / "Containers/com.apple.mail/Data/Library/Mail Downloads";
    std::vector<CleanupPart> parts = measureParts(scan, listFolder(scan, folder));
    return {.id = "mail",
            .name = "Mail attachments",
            .bytes = totalBytes(parts),
            .safety = Safety::review,
            .location = shortened(scan, folder),
            .explanation =
                "Copies of attachments you opened from Mail. The originals stay in your email, but "
                "check you haven’t been editing one of these copies.",
            .lastUsed = {},
            .revealURL = std::move(folder),
            .action = TrashAction{std::move(parts)}};
}

}  // namespace

std::vector<CleanupItem> scanDownloads(const ScanContext& scan,
                                       const std::vector<std::string>& appNames) {
    const std::vector<std::string> names = comparableNames(appNames);
    std::vector<CleanupPart> used;
    std::vector<CleanupPart> other;
    for (const std::filesystem::path& child : listFolder(scan, scan.platform.home / "Downloads")) {
        if (scan.token.stop_requested()) break;
        if (!isInstaller(child)) continue;
        const Measure found = measure(scan, child);
        std::vector<CleanupPart>& list = isInstalled(keyOf(child), names) ? used : other;
        list.push_back({child, found.bytes, found.folder});
    }
    std::vector<CleanupItem> items;
    if (!used.empty()) items.push_back(usedInstallers(std::move(used)));
    if (!other.empty()) items.push_back(otherInstallers(std::move(other)));
    items.push_back(mailAttachments(scan));
    std::erase_if(items, [](const CleanupItem& item) { return item.bytes < 1; });
    return items;
}

}  // namespace morvane::CleanupScanner
