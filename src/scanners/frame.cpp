#include "scanners/frame.h"

#include <algorithm>
#include <utility>

#include "model/path_text.h"
#include "model/words.h"

namespace morvane::CleanupScanner {

std::vector<std::filesystem::path> listFolder(const ScanContext& scan,
                                              const std::filesystem::path& url) {
    std::vector<std::filesystem::path> children;
    Result<std::vector<ListedEntry>> listed = scan.platform.files.list(url, Hidden::skipped);
    if (!listed.ok()) return children;
    children.reserve(listed->size());
    for (ListedEntry& entry : *listed) children.push_back(std::move(entry.path));
    return children;
}

Measure measure(const ScanContext& scan, const std::filesystem::path& url) {
    const Result<Attributes> found = scan.platform.files.attributes(url);
    if (!found.ok()) return {};
    if (found->kind == EntryKind::folder) {
        const TreeSize size = folderSize(scan, url, true);
        return {size.bytes, size.newest, found->folder, size.isUnreadable};
    }
    return {found->allocatedBytes, found->modified, found->folder};
}

TreeSize folderSize(const ScanContext& scan, const std::filesystem::path& url, bool withDates) {
    return scan.platform.files.treeSize(url, withDates, scan.token);
}

std::vector<CleanupPart> measureParts(const ScanContext& scan,
                                      const std::vector<std::filesystem::path>& urls) {
    std::vector<CleanupPart> parts;
    for (const std::filesystem::path& url : urls) {
        if (scan.token.stop_requested()) break;
        const Measure found = measure(scan, url);
        if (found.bytes >= 1) parts.push_back({url, found.bytes, found.folder});
    }
    return parts;
}

std::int64_t totalSize(const ScanContext& scan, const std::vector<std::filesystem::path>& urls) {
    std::int64_t sum = 0;
    for (const std::filesystem::path& url : urls) sum += folderSize(scan, url, false).bytes;
    return sum;
}

std::vector<CleanupItem> sortedBySize(std::vector<CleanupItem> items) {
    std::stable_sort(
        items.begin(), items.end(),
        [](const CleanupItem& left, const CleanupItem& right) { return left.bytes > right.bytes; });
    return items;
}

std::string usedWords(std::optional<Instant> date, Instant now, const Region& region) {
    if (!date) return {};
    return "Used " + relativeDayWords(std::min(*date, now), now, region);
}

std::string shortened(const ScanContext& scan, const std::filesystem::path& url) {
    return abbreviatedWithTilde(url, scan.platform.home);
}

std::optional<std::string> toolOutput(const ScanContext& scan,
                                      const std::filesystem::path& executable,
                                      const std::vector<std::string>& arguments,
                                      std::chrono::seconds limit) {
    std::optional<ToolResult> result =
        scan.platform.processes.run(executable, arguments, limit, scan.token);
    if (!result || result->status != 0) return std::nullopt;
    return std::move(result->output);
}

}  // namespace morvane::CleanupScanner
