#include "ui/overview/overview_screen.h"

#include <algorithm>

#include "model/words.h"
#include "ui/screens/views.h"

namespace morvane::screens {

namespace {

struct SliceWords {
    DiskCategory category;
    const char* label;
    const char* color;
};
constexpr std::array sliceWords{
    SliceWords{DiskCategory::apps, "Apps", "accent"},
    SliceWords{DiskCategory::media, "Photos & Video", "diskMedia"},
    SliceWords{DiskCategory::documents, "Documents", "diskDocuments"},
    SliceWords{DiskCategory::developer, "Developer", "diskDeveloper"},
    SliceWords{DiskCategory::system, "macOS & System", "diskSystem"},
    SliceWords{DiskCategory::other, "Other", "diskOther"},
};

DiskSegment segmentOf(const DiskUsage::Slice& slice, std::int64_t totalBytes) {
    DiskSegment segment{.id = std::string(sliceIdentity(slice)),
                        .size = capacityText(gigabytes(slice.bytes)),
                        .fraction = fractionOf(slice.bytes, std::max<std::int64_t>(totalBytes, 1))};
    switch (slice.kind.value) {
        case DiskUsage::Slice::Kind::Case::category:
            for (const SliceWords& words : sliceWords) {
                if (words.category != slice.kind.category) continue;
                segment.label = words.label;
                segment.color = words.color;
            }
            break;
        case DiskUsage::Slice::Kind::Case::pending:
            segment.label = "Measuring…";
            segment.color = "diskOther";
            break;
        case DiskUsage::Slice::Kind::Case::purgeable:
            segment.label = "Purgeable";
            segment.color = "diskSystem";
            break;
    }
    return segment;
}

DiskCard diskCard(const AppState& state) {
    const DiskUsage& disk = *state.disk;
    const std::int64_t used =
        std::max<std::int64_t>(0, disk.totalBytes - disk.freeBytes - disk.purgeableBytes);
    DiskCard card{.name = disk.volumeName,
                  .used = capacityText(gigabytes(used)) + " used of " +
                          capacityText(gigabytes(disk.totalBytes)),
                  .free = capacityText(gigabytes(disk.freeBytes)) + " free",
                  .legendFree = {.label = "Free", .size = capacityText(gigabytes(disk.freeBytes))}};
    for (const DiskUsage::Slice& slice : state.slices()) {
        card.segments.push_back(segmentOf(slice, disk.totalBytes));
    }
    if (disk.isComplete && !disk.measured.empty() && !hasFullDiskAccess(state)) {
        card.note = DiskNote{
            .symbol = "lock",
            .text = "Photos and Documents are counted in Other until Morvane has Full Disk Access.",
            .button = {.label = "Allow…", .kind = ButtonKind::link}};
    }
    return card;
}

}  // namespace

OverviewScreen::OverviewScreen(ScreenNeeds needs) : needs_(needs) {
    const auto scan = [this](const Press&) { needs_.state.startScan(true); };
    onPress("disk.note.button", [this](const Press&) { needs_.state.watchForAccess(); });
    // The idle card sweeps, the success card is done, the others scan or stop.
    onPress("card.button", [this](const Press&) {
        AppState& state = needs_.state;
        switch (*state.scanPhase) {
            case ScanPhase::scanning: {
                const AnimatedChange animated(state.store());
                state.cancelScan();
                break;
            }
            case ScanPhase::success: {
                const AnimatedChange animated(state.store());
                state.settleScanPhase();
                break;
            }
            case ScanPhase::idle:
            case ScanPhase::done:
            case ScanPhase::empty:
                state.startScan(true);
                break;
        }
    });
    onPress("card.scanAgain", scan);
    onPress("card.review", [this](const Press&) { needs_.state.selection = SidebarItem::sweep; });
    onPress("card.cards", [this](const Press& press) { openCategory(press.row); });
    onPress("card.openTrash", [this](const Press&) {
        const Platform& platform = needs_.state.platform();
        platform.workspace.open(platform.home / ".Trash");
    });
}

OverviewContent OverviewScreen::content() const {
    return {.title = "Overview",
            .lastSwept = needs_.state.lastSweptWords(),
            .disk = diskCard(needs_.state),
            .card = phaseCard(needs_.state)};
}

void OverviewScreen::openCategory(std::string_view raw) {
    AppState& state = needs_.state;
    for (ScanCategory category : allScanCategories) {
        if (rawValue(category) != raw) continue;
        switch (category) {
            case ScanCategory::crumbs:
            case ScanCategory::leftovers:
                state.selection = SidebarItem::sweep;
                break;
            case ScanCategory::developer:
                state.selection = SidebarItem::developer;
                break;
            case ScanCategory::largeFiles:
                state.fileMinMB = 100;
                state.fileMinMonths = 12;
                state.fileKind = std::nullopt;
                state.selection = SidebarItem::large;
                break;
            case ScanCategory::backups:
                if (hasFullDiskAccess(state)) {
                    state.selection = SidebarItem::sweep;
                } else {
                    state.watchForAccess();
                }
                break;
        }
    }
}

}  // namespace morvane::screens
