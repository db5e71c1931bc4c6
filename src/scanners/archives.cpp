#include "scanners/archives.h"

#include <optional>
#include <string>
#include <utility>

#include "model/path_text.h"
#include "model/words.h"
#include "scanners/dev_item.h"
#include "scanners/frame.h"
#include "scanners/read_plist.h"

namespace morvane::CleanupScanner {

namespace {

// "Writer 1.2 (34)". A build number alone says nothing to the user.
std::string archiveName(const std::filesystem::path& url, const PropertyList& info) {
    std::string name = textIn(info, "Name").value_or(nameText(url.stem()));
    const PropertyList* properties = info.find("ApplicationProperties");
    if (properties == nullptr) return name;
    const std::optional<std::string> version = textIn(*properties, "CFBundleShortVersionString");
    if (!version) return name;
    name += " " + *version;
    if (const std::optional<std::string> build = textIn(*properties, "CFBundleVersion")) {
        name += " (" + *build + ")";
    }
    return name;
}

std::optional<CleanupItem> archiveItem(const ScanContext& scan, const std::filesystem::path& url) {
    const Measure found = measure(scan, url);
    if (found.bytes < 1) return std::nullopt;
    const PropertyList info = readPlist(scan, url / "Info.plist");
    std::string made;
    if (const std::optional<Instant> date = dateIn(info, "CreationDate")) {
        made = "Made " + relativeDayWords(date, scan.now, scan.platform.region);
    }
    return devItem(scan, "arc:" + pathText(url), archiveName(url, info), url, found, Safety::review,
                   std::move(made));
}

}  // namespace

std::vector<CleanupItem> scanArchives(const ScanContext& scan) {
    std::vector<CleanupItem> items;
    for (const std::filesystem::path& day :
         listFolder(scan, scan.platform.library() / "Developer/Xcode/Archives")) {
        for (const std::filesystem::path& child : listFolder(scan, day)) {
            if (scan.token.stop_requested()) return sortedBySize(std::move(items));
            if (child.extension() != ".xcarchive") continue;
            if (std::optional<CleanupItem> item = archiveItem(scan, child)) {
                items.push_back(std::move(*item));
            }
        }
    }
    return sortedBySize(std::move(items));
}

}  // namespace morvane::CleanupScanner
