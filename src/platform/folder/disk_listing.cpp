#include <cerrno>

#include "platform/folder/disk_attributes.h"
#include "platform/folder/disk_file_system.h"
#include "platform/folder/file_status.h"
#include "platform/folder/raw_listing.h"

namespace morvane::folder {

Result<std::vector<ListedEntry>> DiskFileSystem::list(const std::filesystem::path& path,
                                                      Hidden hidden) const {
    HostMarks marks;
    marks.addLists(disk_, *host_.current());
    const Result<OpenFolder> opened = openFolder(path, marks);
    if (!opened.ok()) return opened.failure();
    const int folder = opened->folder.get();
    const FolderIdentity identity = identityOf(folder);
    const MarkedItem* marked = marks.find(opened->canonicalPath);

    std::vector<ListedEntry> found;
    RawListing listing;
    RawEntry entry;
    while (listing.read(folder)) {
        while (listing.next(entry)) {
            std::string name(entry.name);
            const MarkedItem* itself = marked == nullptr ? nullptr : marked->find(name);
            Result<Attributes> attributes = readAttributes(folder, name, identity, itself);
            if (!attributes.ok()) {
                // It vanished; or it may be seen but not asked, and is told by its name alone.
                if (attributes.failure().kind == Failure::Kind::notFound) continue;
                attributes = attributesByName(name, kindOfListed(entry.type), identity, itself);
            }
            if (hidden == Hidden::skipped && attributes->isHidden) continue;
            found.push_back({path / name, *attributes});
        }
        errno = 0;
        if (listing.wasLast()) break;
    }
    if (errno != 0) return failureFromErrno(errno, path);
    return found;
}

Result<std::vector<std::string>> DiskFileSystem::names(const std::filesystem::path& path) const {
    HostMarks marks;
    marks.addLists(disk_, *host_.current());
    const Result<OpenFolder> opened = openFolder(path, marks);
    if (!opened.ok()) return opened.failure();
    std::vector<std::string> found;
    RawListing listing;
    RawEntry entry;
    while (listing.read(opened->folder.get())) {
        while (listing.next(entry)) found.emplace_back(entry.name);
        errno = 0;
        if (listing.wasLast()) break;
    }
    if (errno != 0) return failureFromErrno(errno, path);
    return found;
}

}  // namespace morvane::folder
