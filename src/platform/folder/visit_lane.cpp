#include "platform/folder/visit_lane.h"

#include <dirent.h>

#include "platform/folder/file_status.h"
#include "platform/package_extensions.h"

namespace morvane::folder {

namespace {

unsigned maskFor(const WalkOptions& options) {
    unsigned mask = STATX_TYPE | STATX_BLOCKS;
    if (options.dates) mask |= STATX_MTIME;
    if (options.created) mask |= STATX_BTIME;
    if (options.executable) mask |= STATX_MODE;
    return mask;
}

std::uint8_t flagsOf(const WalkedEntry& entry) {
    return static_cast<std::uint8_t>((entry.isPackage ? 1U : 0U) | (entry.isVolume ? 2U : 0U) |
                                     (entry.isAlias ? 4U : 0U) | (entry.isHidden ? 8U : 0U));
}

WalkedEntry folderEntry(const NameList::Name& name) {
    return {.name = name.name,
            .kind = EntryKind::folder,
            .isPackage = (name.flags & 1U) != 0,
            .isVolume = (name.flags & 2U) != 0,
            .isAlias = (name.flags & 4U) != 0,
            .isHidden = (name.flags & 8U) != 0};
}

}  // namespace

VisitLane::VisitLane(WalkCrew& crew, const StopToken& token, const WalkOptions& options,
                     bool askForMounts)
    : WalkLane(crew, token),
      options_(options),
      mask_(maskFor(options)),
      askForMounts_(askForMounts) {}

void VisitLane::look(WalkFrame& frame, RawListing& listing) {
    batch_.clear();
    RawEntry raw;
    while (listing.next(raw)) {
        batch_.push_back(walked(frame, raw));
        if (batch_.size() % 128 == 0 && shouldStop()) break;
    }
    if (batch_.empty()) return;
    frame.node->entries(batch_);
    for (const WalkedEntry& entry : batch_) {
        if (entry.kind == EntryKind::folder) frame.below.add(entry.name, flagsOf(entry));
    }
}

WalkedEntry VisitLane::walked(const WalkFrame& frame, const RawEntry& raw) const {
    WalkedEntry entry{.name = raw.name, .kind = kindOfListed(raw.type)};
    entry.isHidden = raw.name.front() == '.';
    const bool isAsked = entry.kind == EntryKind::file || raw.type == DT_UNKNOWN ||
                         (options_.links && entry.kind != EntryKind::folder) ||
                         (askForMounts_ && entry.kind == EntryKind::folder);
    if (isAsked) addAttributes(frame, entry);
    const MarkedItem* marks = frame.marks == nullptr ? nullptr : frame.marks->find(raw.name);
    if (marks != nullptr) {
        entry.isHidden = entry.isHidden || marks->has(Mark::hidden);
        entry.isAlias = marks->has(Mark::alias);
    }
    if (entry.kind == EntryKind::folder) {
        entry.isPackage =
            isPackageName(raw.name) || (marks != nullptr && marks->has(Mark::package));
        entry.isVolume = entry.isVolume || (marks != nullptr && marks->has(Mark::mount));
    }
    return entry;
}

// What the system says now counts, not what the listing said.
void VisitLane::addAttributes(const WalkFrame& frame, WalkedEntry& entry) const {
    struct statx status;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the system
    // A name as the system lists it ends in a NUL.
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage)
    if (!askStatus(frame.folder.get(), entry.name.data(), mask_, status)) return;
    entry.kind = kindOf(status.stx_mode);
    if (entry.kind == EntryKind::folder) {
        if (askForMounts_) {
            // A name as the system lists it ends in a NUL.
            // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage)
            entry.isVolume = isMountPoint(frame.folder.get(), entry.name.data(), status);
        }
        return;
    }
    if (entry.kind != EntryKind::file && !options_.links) return;
    entry.hasAttributes = true;
    entry.allocatedBytes = allocatedBytesOf(status);
    if (options_.dates) entry.modified = instantOf(status.stx_mtime);
    if (options_.created) entry.created = createdOf(status);
    if (options_.executable) {
        entry.isExecutable = entry.kind == EntryKind::file && (status.stx_mode & 0111) != 0;
    }
}

std::optional<WalkFrame> VisitLane::enter(WalkFrame& parent, const NameList::Name& name) {
    std::unique_ptr<FolderVisit> visit = parent.node->enter(folderEntry(name));
    if (visit == nullptr) return std::nullopt;
    WalkFrame child;
    if (parent.marks != nullptr) child.marks = parent.marks->find(name.name);
    std::string kept(name.name);  // opening may read on, which moves the names
    if (child.marks == nullptr || !child.marks->has(Mark::unreadable)) {
        child.folder = open(parent, name);
    }
    if (!child.folder) {
        parent.node->ended(std::move(visit));
        return std::nullopt;
    }
    child.identity = identityOf(child.folder.get());
    child.node = new WalkNode(*parent.node, std::move(kept), std::move(visit), child.identity);
    return child;
}

void VisitLane::leave(WalkFrame& frame) {
    WalkNode::letGo(frame.node);
}

}  // namespace morvane::folder
