#include "scanners/backups.h"

#include <string>
#include <utility>

#include "model/path_text.h"
#include "model/words.h"
#include "scanners/frame.h"
#include "scanners/read_plist.h"

namespace morvane::CleanupScanner {

std::vector<CleanupItem> scanBackups(const ScanContext& scan) {
    std::vector<CleanupItem> items;
    const std::filesystem::path folder =
        scan.platform.library() / "Application Support/MobileSync/Backup";
    for (const std::filesystem::path& child : listFolder(scan, folder)) {
        if (scan.token.stop_requested()) break;
        if (std::optional<CleanupItem> item = backupItem(scan, child)) {
            items.push_back(std::move(*item));
        }
    }
    return sortedBySize(std::move(items));
}

std::optional<CleanupItem> backupItem(const ScanContext& scan,
                                      const std::filesystem::path& folder) {
    const Measure found = measure(scan, folder);
    if (found.bytes < 1) return std::nullopt;
    const PropertyList info = readPlist(scan, folder / "Info.plist");
    std::optional<std::string> device = textIn(info, "Device Name");
    if (!device) device = textIn(info, "Display Name");
    std::string name = std::move(device).value_or("An iPhone");
    const std::optional<std::string> product = textIn(info, "Product Name");
    // Every device that is backed up here has a name that wants "an": iPhone, iPad, iPod.
    const std::string what = product ? "an " + *product : "a device";
    std::string when;
    if (const std::optional<Instant> date = dateIn(info, "Last Backup Date")) {
        name += ", backed up " + longDateText(*date, scan.platform.region);
        when = ", from " + relativeDayWords(date, scan.now, scan.platform.region);
    }
    return CleanupItem{
        .id = "backup:" + pathText(folder.filename()),
        .name = std::move(name),
        .bytes = found.bytes,
        .safety = Safety::review,
        .location = shortened(scan, folder),
        .explanation = "A full copy of " + what + when +
                       ". If that device now backs up to iCloud, or you no longer have it, this is "
                       "likely safe to remove.",
        .lastUsed = {},
        .revealURL = folder,
        .action = TrashAction{{{folder, found.bytes, found.folder}}}};
}

}  // namespace morvane::CleanupScanner
