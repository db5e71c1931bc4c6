#include "services/schedule.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

using namespace std::chrono_literals;

constexpr Instant now{std::chrono::seconds(1'800'000'000)};

ScheduleView due() {
    return {.hasOnboarded = true, .schedule = ScanSchedule::weekly, .lastScanAt = now - 604'800s};
}

TEST(Schedule, IsDueToTheSecond) {
    ScheduleView view = due();
    EXPECT_TRUE(shallScan(view, now));
    EXPECT_FALSE(shallScan(view, now - 1ns));
    view.lastScanAt = now - 604'799s;
    EXPECT_FALSE(shallScan(view, now));
    view.schedule = ScanSchedule::monthly;
    view.lastScanAt = now - 2'592'000s;
    EXPECT_TRUE(shallScan(view, now));
    EXPECT_FALSE(shallScan(view, now - 1ns));
}

TEST(Schedule, TakesThirtyDaysForAMonthHoweverLongItIs) {
    ScheduleView view = due();
    view.schedule = ScanSchedule::monthly;
    const auto february = std::chrono::sys_days{std::chrono::year{2026} / 2 / 1};
    view.lastScanAt = february;
    EXPECT_FALSE(shallScan(view, february + 24h * 28));
    EXPECT_TRUE(shallScan(view, february + 24h * 30));
}

TEST(Schedule, IsDueWhereNoScanIsKnownAndNotWhereItLiesAhead) {
    ScheduleView view = due();
    view.lastScanAt = std::nullopt;
    EXPECT_TRUE(shallScan(view, now));
    view.lastScanAt = now + 1h;
    EXPECT_FALSE(shallScan(view, now));
    view.lastScanAt = Instant::max();
    EXPECT_FALSE(shallScan(view, now));
    view.lastScanAt = Instant::min();
    EXPECT_TRUE(shallScan(view, now));
}

TEST(Schedule, IsNeverDueWhileItIsOffOrBeforeOnboarding) {
    ScheduleView view = due();
    view.schedule = ScanSchedule::off;
    EXPECT_FALSE(shallScan(view, now));
    view.lastScanAt = std::nullopt;
    EXPECT_FALSE(shallScan(view, now));
    view = due();
    view.hasOnboarded = false;
    EXPECT_FALSE(shallScan(view, now));
}

TEST(Schedule, LeavesAScanASweepAndASuccessAlone) {
    for (const auto& [phase, allowed] : {std::pair(ScanPhase::idle, true),
                                         {ScanPhase::scanning, false},
                                         {ScanPhase::done, true},
                                         {ScanPhase::success, false},
                                         {ScanPhase::empty, true}}) {
        ScheduleView view = due();
        view.scanPhase = phase;
        EXPECT_EQ(shallScan(view, now), allowed);
    }
    ScheduleView view = due();
    view.isSweeping = true;
    EXPECT_FALSE(shallScan(view, now));
}

TEST(Schedule, HoldsBackOnlyInFrontAndOnlyWhereTheUserChooses) {
    const std::pair<std::optional<SidebarItem>, bool> screens[] = {
        {std::nullopt, true},          {SidebarItem::overview, true},
        {SidebarItem::sweep, false},   {SidebarItem::developer, false},
        {SidebarItem::storage, true},  {SidebarItem::uninstaller, true},
        {SidebarItem::settings, true}, {SidebarItem::large, true}};
    for (const auto& [screen, allowed] : screens) {
        ScheduleView view = due();
        view.selection = screen;
        view.isActive = true;
        EXPECT_EQ(shallScan(view, now), allowed);
        view.isActive = false;
        EXPECT_TRUE(shallScan(view, now));
    }
}

ReminderView ready() {
    return {.safeMB = 5000.0, .remindWhenReady = true, .isActive = false};
}

TEST(ReminderRule, NeedsFiveThousandMegabytes) {
    ReminderView view = ready();
    EXPECT_TRUE(shallRemind(view));
    view.safeMB = 4999.9;
    EXPECT_FALSE(shallRemind(view));
}

TEST(ReminderRule, NeedsAUserElsewhereWhoWantsIt) {
    ReminderView view = ready();
    view.isActive = true;
    EXPECT_FALSE(shallRemind(view));
    view = ready();
    view.remindWhenReady = false;
    EXPECT_FALSE(shallRemind(view));
}

TEST(ReminderRule, NeedsASweepSinceTheLast) {
    ReminderView view = ready();
    view.remindedAt = now;
    EXPECT_FALSE(shallRemind(view));
    view.lastSweptAt = now - 1ns;
    EXPECT_FALSE(shallRemind(view));
    view.lastSweptAt = now;
    EXPECT_TRUE(shallRemind(view));
}

TEST(ReminderRule, HasItsWords) {
    const ReminderWords words = reminderWords(12'345.6, true);
    EXPECT_EQ(words.identifier, "ready-to-sweep");
    EXPECT_EQ(words.title, "12.3 GB is ready to sweep");
    EXPECT_EQ(words.body, "Open Morvane to review it. Everything goes to the Trash first.");
    EXPECT_EQ(reminderWords(5000, false).title, "5.0 GB is ready to sweep");
    EXPECT_EQ(reminderWords(5000, false).body,
              "Open Morvane to review it before anything is deleted.");
}

TEST(Schedule, IsLookedAtEveryFifteenMinutes) {
    EXPECT_EQ(autoScanInterval, 900s);
}

}  // namespace
}  // namespace morvane
