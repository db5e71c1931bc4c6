#include "platform/folder/disk_metadata.h"

#include "model/path_text.h"

namespace morvane::folder {

namespace {

template <class T>
const T* entry(const std::map<std::filesystem::path, T>& map, const std::filesystem::path& path) {
    if (map.empty()) return nullptr;
    const auto found = map.find(standardised(path));
    return found == map.end() ? nullptr : &found->second;
}

}  // namespace

std::optional<MetadataStore::Item> DiskMetadata::item(const std::filesystem::path& path) const {
    const auto host = host_.current();
    const Item* found = entry(host->metadata, path);
    return found ? std::optional(*found) : std::nullopt;
}

std::optional<Instant> DiskMetadata::addedToFolder(const std::filesystem::path& path) const {
    const auto host = host_.current();
    const Host::Dates* found = entry(host->dates, path);
    return found ? found->added : std::nullopt;
}

std::optional<Instant> DiskMetadata::created(const std::filesystem::path& path) const {
    const auto host = host_.current();
    const Host::Dates* found = entry(host->dates, path);
    return found ? found->created : std::nullopt;
}

}  // namespace morvane::folder
