#pragma once

#include <optional>
#include <string>

#include "model/instant.h"
#include "model/vocabulary.h"

namespace morvane {

// How often the schedule is looked at.
inline constexpr std::chrono::seconds autoScanInterval{900};

// What the schedule looks at, taken from the store at one moment.
struct ScheduleView {
    bool hasOnboarded = false;
    ScanSchedule schedule = ScanSchedule::weekly;
    std::optional<Instant> lastScanAt;
    ScanPhase scanPhase = ScanPhase::idle;
    bool isSweeping = false;
    bool isActive = false;  // the program is in front
    std::optional<SidebarItem> selection;
};

// Whether a scan shall start by itself now: it is due, and nobody is looking at results that it
// would replace.
[[nodiscard]] bool shallScan(const ScheduleView& view, Instant now);

struct ReminderView {
    double safeMB = 0;
    bool remindWhenReady = true;
    bool isActive = false;
    std::optional<Instant> remindedAt;
    std::optional<Instant> lastSweptAt;
};

// Whether a scan found enough to tell of: at least 5,000 MB, to a user who is elsewhere and has
// swept since the last reminder.
[[nodiscard]] bool shallRemind(const ReminderView& view);

struct ReminderWords {
    std::string identifier;
    std::string title;
    std::string body;
};
[[nodiscard]] ReminderWords reminderWords(double safeMB, bool alwaysUseTrash);

}  // namespace morvane
