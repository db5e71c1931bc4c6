#include "model/words.h"

#include <chrono>
#include <gtest/gtest.h>

namespace morvane {
namespace {

using namespace std::chrono_literals;

const Region berlin{"en_GB", "Europe/Berlin"};
const Region utc{"en_US", "UTC"};

Instant at(int year, unsigned month, unsigned day, int hour = 0, int minute = 0) {
    return std::chrono::sys_days{std::chrono::year(year) / static_cast<int>(month) /
                                 static_cast<int>(day)} +
           std::chrono::hours(hour) + std::chrono::minutes(minute);
}

std::string daysAgo(int days) {
    const Instant now = at(2026, 11, 21, 12);
    return relativeDayText(now - std::chrono::hours(24 * days), now, utc);
}

TEST(SizeText, GivesTheListedWords) {
    EXPECT_EQ(sizeText(0), "1 KB");
    EXPECT_EQ(sizeText(0.0004), "1 KB");
    EXPECT_EQ(sizeText(0.5), "500 KB");
    EXPECT_EQ(sizeText(0.9995), "1000 KB");
    EXPECT_EQ(sizeText(1), "1 MB");
    EXPECT_EQ(sizeText(999.4), "999 MB");
    EXPECT_EQ(sizeText(999.6), "1000 MB");
    EXPECT_EQ(sizeText(1000), "1.0 GB");
    EXPECT_EQ(sizeText(1234), "1.2 GB");
}

TEST(SizeText, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(sizeText(2.5), "3 MB");
    EXPECT_EQ(sizeText(0.0025), "3 KB");
}

TEST(CapacityText, RoundsFromAHundredGigabytesOn) {
    EXPECT_EQ(capacityText(512.4), "512 GB");
    EXPECT_EQ(capacityText(99.5), "99.5 GB");
    EXPECT_EQ(capacityText(64), "64 GB");
    EXPECT_EQ(capacityText(99.96), "100.0 GB");
    EXPECT_EQ(capacityText(100), "100 GB");
    EXPECT_EQ(capacityText(0), "0 GB");
}

TEST(RelativeDayText, CountsCalendarDays) {
    EXPECT_EQ(relativeDayText(at(2026, 11, 20, 23, 30), at(2026, 11, 21, 0, 10), utc), "Yesterday");
    EXPECT_EQ(relativeDayText(at(2026, 11, 22, 1), at(2026, 11, 21, 12), utc), "Today");
    EXPECT_EQ(relativeDayText(std::nullopt, at(2026, 11, 21), utc), "Never opened");
}

TEST(RelativeDayText, CountsTheDaysOfTheUsersTimeZone) {
    // 23:30 UTC is half past midnight of the next day in Berlin.
    EXPECT_EQ(relativeDayText(at(2026, 11, 20, 23, 30), at(2026, 11, 21, 12), berlin), "Today");
    EXPECT_EQ(relativeDayText(at(2026, 11, 20, 23, 30), at(2026, 11, 21, 12), utc), "Yesterday");
}

TEST(RelativeDayText, ChangesItsWordsAtTheListedDays) {
    EXPECT_EQ(daysAgo(0), "Today");
    EXPECT_EQ(daysAgo(1), "Yesterday");
    EXPECT_EQ(daysAgo(2), "2 days ago");
    EXPECT_EQ(daysAgo(6), "6 days ago");
    EXPECT_EQ(daysAgo(7), "Last week");
    EXPECT_EQ(daysAgo(13), "Last week");
    EXPECT_EQ(daysAgo(14), "2 weeks ago");
    EXPECT_EQ(daysAgo(29), "4 weeks ago");
    EXPECT_EQ(daysAgo(30), "1 month ago");
    EXPECT_EQ(daysAgo(59), "1 month ago");
    EXPECT_EQ(daysAgo(60), "2 months ago");
    EXPECT_EQ(daysAgo(359), "11 months ago");
    EXPECT_EQ(daysAgo(364), "12 months ago");
    EXPECT_EQ(daysAgo(365), "1 year ago");
    EXPECT_EQ(daysAgo(729), "1 year ago");
    EXPECT_EQ(daysAgo(730), "2 years ago");
}

TEST(SweepDateText, NamesTodayAndYesterdayWithTheTime) {
    const Instant now = at(2026, 11, 21, 12);
    EXPECT_EQ(sweepDateText(at(2026, 11, 21, 8, 5), now, berlin), "Today, 09:05");
    EXPECT_EQ(sweepDateText(at(2026, 11, 20, 8, 5), now, berlin), "Yesterday, 09:05");
}

TEST(SweepDateText, LeavesOutTheYearWithinTheSameOne) {
    const Instant now = at(2026, 11, 21, 12);
    EXPECT_EQ(sweepDateText(at(2026, 3, 2, 12), now, berlin), "2 March");
    EXPECT_EQ(sweepDateText(at(2025, 3, 2, 12), now, berlin), "2 March 2025");
    EXPECT_EQ(sweepDateText(at(2026, 3, 2, 12), now, utc), "March 2");
}

TEST(LongDateText, IsTheLongDateOfTheLocale) {
    EXPECT_EQ(longDateText(at(2026, 3, 2, 12), berlin), "2 March 2026");
    EXPECT_EQ(longDateText(at(2026, 3, 2, 12), utc), "March 2, 2026");
}

TEST(LastSweptText, TellsWhenInTheMiddleOfASentence) {
    const Instant now = at(2026, 11, 21, 12);
    EXPECT_EQ(lastSweptText(std::nullopt, now, utc), "Not swept yet");
    EXPECT_EQ(lastSweptText(at(2026, 11, 18, 12), now, utc), "Last swept 3 days ago");
}

TEST(CountText, AddsAnSUnlessThereIsOne) {
    EXPECT_EQ(countText(0, "item"), "0 items");
    EXPECT_EQ(countText(1, "item"), "1 item");
    EXPECT_EQ(countText(2, "item"), "2 items");
}

}  // namespace
}  // namespace morvane
