#include "measure/large_file_dates.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

using std::chrono::days;
using std::chrono::seconds;

constexpr Instant now{seconds{1'800'000'000}};

TEST(LargeFileAge, CountsFromTheLaterOfOpenedAndModified) {
    EXPECT_EQ(
        ageFrom({.opened = now - days{3}, .modified = now - days{9}, .hasMetadataItem = true}, now),
        (FileAge{now - days{3}, now - days{3}}));
    EXPECT_EQ(
        ageFrom({.opened = now - days{9}, .modified = now - days{3}, .hasMetadataItem = true}, now),
        (FileAge{now - days{3}, now - days{3}}));
    EXPECT_EQ(ageFrom({.modified = now - days{5}}, now), (FileAge{now - days{5}, now - days{5}}));
}

TEST(LargeFileAge, OfAFileCopiedHereAndNeverOpenedCountsFromItsArrival) {
    const FileDates copied{
        .added = now - days{365}, .modified = now - days{900}, .hasMetadataItem = true};
    EXPECT_EQ(ageFrom(copied, now), (FileAge{std::nullopt, now - days{365}}));
}

TEST(LargeFileAge, ForgivesSixtySecondsBetweenArrivalAndModification) {
    FileDates dates{
        .added = now - days{9}, .modified = now - days{9} + seconds{60}, .hasMetadataItem = true};
    EXPECT_EQ(ageFrom(dates, now), (FileAge{std::nullopt, now - days{9}}));
    *dates.modified += std::chrono::nanoseconds{1};
    EXPECT_EQ(ageFrom(dates, now).lastUsed, dates.modified);
}

TEST(LargeFileAge, CannotTellThatAFileIsUntouchedWhereTheStoreDoesNotKnowIt) {
    const FileDates unknown{.added = now - days{365}, .modified = now - days{900}};
    EXPECT_EQ(ageFrom(unknown, now), (FileAge{now - days{900}, now - days{900}}));
}

TEST(LargeFileAge, OfAnOpenedFileIsNotThatOfAnUntouchedOne) {
    const FileDates opened{.opened = now - days{2},
                           .added = now - days{365},
                           .modified = now - days{900},
                           .hasMetadataItem = true};
    EXPECT_EQ(ageFrom(opened, now), (FileAge{now - days{2}, now - days{2}}));
}

TEST(LargeFileAge, NeverCountsFromADateToCome) {
    EXPECT_EQ(ageFrom({.modified = now + days{1}}, now), (FileAge{now, now}));
    EXPECT_EQ(ageFrom({.opened = now + days{1}, .hasMetadataItem = true}, now),
              (FileAge{now, now}));
    EXPECT_EQ(ageFrom({.added = now + days{1}, .hasMetadataItem = true}, now),
              (FileAge{std::nullopt, now}));
}

TEST(LargeFileAge, CountsFromNowWhereNothingIsKnown) {
    EXPECT_EQ(ageFrom({}, now), (FileAge{std::nullopt, now}));
    EXPECT_EQ(ageFrom({.added = now - days{4}}, now), (FileAge{std::nullopt, now - days{4}}));
}

TEST(LargeFileAge, IsSafeAtTheEndsOfTime) {
    const FileDates ends{
        .added = Instant::max(), .modified = Instant::min(), .hasMetadataItem = true};
    EXPECT_EQ(ageFrom(ends, now), (FileAge{std::nullopt, now}));
}

}  // namespace
}  // namespace morvane
