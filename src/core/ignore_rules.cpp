#include "core/ignore_rules.h"

#include <algorithm>
#include <utility>

#include "model/path_text.h"

namespace morvane {

bool isIgnored(const std::filesystem::path& url, const std::vector<std::string>& folders) {
    if (folders.empty()) return false;
    const std::string path = standardised(url).native();
    return std::any_of(folders.begin(), folders.end(), [&](const std::string& folder) {
        const std::string entry = pathFromText(folder).native();
        if (path == entry) return true;
        return path.starts_with(entry == "/" ? entry : entry + "/");
    });
}

std::optional<CleanupItem> keepingIgnored(CleanupItem item,
                                          const std::vector<std::string>& folders) {
    const std::vector<CleanupPart>* parts = trashParts(item);
    if (folders.empty() || parts == nullptr) return item;
    std::vector<CleanupPart> kept;
    for (const CleanupPart& part : *parts) {
        if (!isIgnored(part.url, folders)) kept.push_back(part);
    }
    if (kept.size() == parts->size()) return item;
    if (kept.empty()) return std::nullopt;
    return withParts(std::move(item), std::move(kept));
}

std::vector<CleanupItem> keepingIgnored(std::vector<CleanupItem> items,
                                        const std::vector<std::string>& folders) {
    if (folders.empty()) return items;
    std::vector<CleanupItem> kept;
    for (CleanupItem& item : items) {
        if (auto left = keepingIgnored(std::move(item), folders)) kept.push_back(std::move(*left));
    }
    return kept;
}

std::vector<DevSection> keepingIgnored(std::vector<DevSection> sections,
                                       const std::vector<std::string>& folders) {
    for (DevSection& section : sections) {
        section.items = keepingIgnored(std::move(section.items), folders);
    }
    std::erase_if(sections, [](const DevSection& section) { return section.items.empty(); });
    return sections;
}

std::optional<InstalledApp> keepingIgnored(InstalledApp app,
                                           const std::vector<std::string>& folders) {
    if (folders.empty()) return app;
    if (isIgnored(app.url, folders)) return std::nullopt;
    std::erase_if(app.parts, [&](const AppPart& part) { return isIgnored(part.url, folders); });
    return app;
}

std::vector<InstalledApp> withoutIgnored(std::vector<InstalledApp> apps,
                                         const std::vector<std::string>& folders) {
    if (folders.empty()) return apps;
    std::vector<InstalledApp> kept;
    for (InstalledApp& app : apps) {
        if (auto left = keepingIgnored(std::move(app), folders)) kept.push_back(std::move(*left));
    }
    return kept;
}

std::set<std::string> safeIDs(const std::vector<CleanupItem>& items) {
    std::set<std::string> ids;
    for (const CleanupItem& item : items) {
        if (!needsReview(item)) ids.insert(item.id);
    }
    return ids;
}

}  // namespace morvane
