#include "platform/folder/size_lane.h"

#include <algorithm>
#include <dirent.h>

#include "platform/folder/file_status.h"

namespace morvane::folder {

SizeLane::SizeLane(WalkCrew& crew, const StopToken& token, bool withDates)
    : WalkLane(crew, token),
      mask_(STATX_TYPE | STATX_BLOCKS | (withDates ? STATX_MTIME : 0U)),
      withDates_(withDates) {}

void SizeLane::look(WalkFrame& frame, RawListing& listing) {
    RawEntry entry;
    for (int count = 1; listing.next(entry); ++count) {
        if (entry.type == DT_DIR) {
            frame.below.add(entry.name, 0);
        } else if (entry.type == DT_REG || entry.type == DT_UNKNOWN) {
            ask(frame, entry);
        }
        if (count % 128 == 0 && shouldStop()) return;
    }
}

void SizeLane::ask(WalkFrame& frame, const RawEntry& entry) {
    struct statx status;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the system
    // A name as the system lists it ends in a NUL.
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage)
    if (!askStatus(frame.folder.get(), entry.name.data(), mask_, status)) return;
    if (S_ISDIR(status.stx_mode)) frame.below.add(entry.name, 0);
    if (!S_ISREG(status.stx_mode)) return;
    size_.bytes += allocatedBytesOf(status);
    if (!withDates_) return;
    const Instant modified = instantOf(status.stx_mtime);
    size_.newest = size_.newest ? std::max(*size_.newest, modified) : modified;
}

std::optional<WalkFrame> SizeLane::enter(WalkFrame& parent, const NameList::Name& name) {
    WalkFrame child;
    if (parent.marks != nullptr) child.marks = parent.marks->find(name.name);
    if (child.marks != nullptr && child.marks->has(Mark::unreadable)) return std::nullopt;
    child.folder = open(parent, name);
    if (!child.folder) return std::nullopt;
    return child;
}

void SizeLane::leave(WalkFrame& frame) {
    if (frame.isTop) size_.isUnreadable = frame.isCutShort;
}

}  // namespace morvane::folder
