#include "services/schedule.h"

#include "model/words.h"

namespace morvane {

namespace {

constexpr std::chrono::seconds weeklyPeriod{604'800};
constexpr std::chrono::seconds monthlyPeriod{2'592'000};
constexpr double reminderThresholdMB = 5000.0;

bool isDue(ScanSchedule schedule, std::optional<Instant> lastScanAt, Instant now) {
    switch (schedule) {
        case ScanSchedule::off:
            return false;
        case ScanSchedule::weekly:
            return !lastScanAt || *lastScanAt <= now - weeklyPeriod;
        case ScanSchedule::monthly:
            return !lastScanAt || *lastScanAt <= now - monthlyPeriod;
    }
    return false;
}

}  // namespace

bool shallScan(const ScheduleView& view, Instant now) {
    if (!view.hasOnboarded || !isDue(view.schedule, view.lastScanAt, now)) return false;
    if (view.scanPhase == ScanPhase::scanning || view.scanPhase == ScanPhase::success) return false;
    if (view.isSweeping) return false;
    const bool isChoosing =
        view.selection == SidebarItem::sweep || view.selection == SidebarItem::developer;
    return !(view.isActive && isChoosing);
}

bool shallRemind(const ReminderView& view) {
    if (!view.remindWhenReady || view.safeMB < reminderThresholdMB || view.isActive) return false;
    return !view.remindedAt || (view.lastSweptAt && *view.remindedAt <= *view.lastSweptAt);
}

ReminderWords reminderWords(double safeMB, bool alwaysUseTrash) {
    return {"ready-to-sweep", sizeText(safeMB) + " is ready to sweep",
            alwaysUseTrash ? "Open Morvane to review it. Everything goes to the Trash first."
                           : "Open Morvane to review it before anything is deleted."};
}

}  // namespace morvane
