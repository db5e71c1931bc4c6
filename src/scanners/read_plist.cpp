#include "scanners/read_plist.h"

#include <utility>

namespace morvane::CleanupScanner {

PropertyList readPlist(const ScanContext& scan, const std::filesystem::path& url) {
    constexpr std::int64_t limit = std::int64_t{32} << 20;
    PropertyList nothing{PropertyList::Dictionary{}};
    const Result<std::string> bytes = scan.platform.files.readFile(url, limit);
    if (!bytes.ok()) return nothing;
    std::optional<PropertyList> list = readPropertyList(*bytes);
    if (!list || list->dictionary() == nullptr) return nothing;
    return std::move(*list);
}

std::optional<std::string> textIn(const PropertyList& dictionary, std::string_view key) {
    const PropertyList* found = dictionary.find(key);
    const std::string* text = found == nullptr ? nullptr : found->text();
    return text == nullptr ? std::nullopt : std::optional(*text);
}

std::optional<Instant> dateIn(const PropertyList& dictionary, std::string_view key) {
    const PropertyList* found = dictionary.find(key);
    return found == nullptr ? std::nullopt : found->date();
}

}  // namespace morvane::CleanupScanner
