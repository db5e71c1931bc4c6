#include "measure/large_file_finds.h"

#include <algorithm>
#include <utility>

#include "measure/file_kinds.h"
#include "measure/large_file_dates.h"

namespace morvane {

namespace {

FileDates datesOf(const Platform& platform, const LargeFileSighting& sighting) {
    const std::optional<MetadataStore::Item> item = platform.metadata.item(sighting.url);
    FileDates dates{.modified = sighting.modified, .hasMetadataItem = item.has_value()};
    if (item) {
        dates.opened = item->lastUsed;
        dates.added = item->added;
    }
    if (!dates.added) dates.added = platform.metadata.addedToFolder(sighting.url);
    if (!dates.added) dates.added = platform.metadata.created(sighting.url);
    if (!dates.added) dates.added = sighting.created;
    return dates;
}

}  // namespace

void LargeFileFinds::add(LargeFileSighting sighting) {
    if (sighting.bytes < largeFileFloor) return;
    const FileAge age = ageFrom(datesOf(platform_, sighting), now_);
    LargeFile file{.url = std::move(sighting.url),
                   .bytes = sighting.bytes,
                   .lastUsed = age.lastUsed,
                   .since = age.since,
                   .folder = sighting.folder};
    file.kind = fileKind(file.url.filename().native());
    const std::lock_guard lock(mutex_);
    files_.push_back(std::move(file));
}

std::vector<LargeFile> LargeFileFinds::take() {
    // Folders are walked side by side, so their order would vary from scan to scan.
    std::ranges::sort(files_, {}, &LargeFile::url);
    return std::exchange(files_, {});
}

}  // namespace morvane
