#include "platform/formats/iso8601.h"

#include <chrono>
#include <gtest/gtest.h>

namespace morvane {
namespace {

using namespace std::chrono_literals;

constexpr Instant noon{std::chrono::seconds(1795262400)};

TEST(ParseInstant, ReadsFractionsAndOffsets) {
    EXPECT_EQ(parseInstant("2026-11-21T12:00:00Z"), noon);
    EXPECT_EQ(parseInstant("2026-11-21T12:00:00.000Z"), noon);
    EXPECT_EQ(parseInstant("2026-11-21T12:00:00.5Z"), noon + 500ms);
    EXPECT_EQ(parseInstant("2026-11-21T12:00:00.123456789Z"), noon + 123456789ns);
    EXPECT_EQ(parseInstant("2026-11-21T12:00:00.1234567899999Z"), noon + 123456789ns);
    EXPECT_EQ(parseInstant("2026-11-21T13:00:00+01:00"), noon);
    EXPECT_EQ(parseInstant("2026-11-21T06:30:00.25-05:30"), noon + 250ms);
    EXPECT_EQ(parseInstant("2026-11-22T00:30:00+12:30"), noon);
    EXPECT_EQ(parseInstant("1970-01-01T00:00:00Z"), Instant());
    EXPECT_EQ(parseInstant("1969-12-31T23:59:59.75Z"), Instant() - 250ms);
    EXPECT_EQ(parseInstant("2024-02-29T00:00:00Z"), Instant(1709164800s));
}

TEST(ParseInstant, RefusesEveryOtherForm) {
    for (const char* text : {"",
                             "2026-11-21",
                             "2026-11-21T12:00Z",
                             "2026-11-21T12:00:00",
                             "2026-11-21 12:00:00Z",
                             "2026-11-21t12:00:00z",
                             "20261121T120000Z",
                             "2026-11-21T12:00:00.Z",
                             "2026-11-21T12:00:00,5Z",
                             "2026-11-21T12:00:00Z ",
                             " 2026-11-21T12:00:00Z",
                             "2026-11-21T12:00:00+0100",
                             "2026-11-21T12:00:00+01",
                             "2026-11-21T12:00:00+1:00",
                             "2026-11-21T12:00:00+24:00",
                             "2026-11-21T12:00:00+01:60",
                             "2026-11-21T12:00:00ZZ",
                             "2026-11-21T24:00:00Z",
                             "2026-11-21T12:60:00Z",
                             "2026-11-21T12:00:60Z",
                             "2026-13-01T00:00:00Z",
                             "2026-00-01T00:00:00Z",
                             "2026-01-00T00:00:00Z",
                             "2026-02-29T00:00:00Z",
                             "2026-04-31T00:00:00Z",
                             "-026-11-21T12:00:00Z",
                             "+2026-11-21T12:00:00Z",
                             "02026-11-21T12:00:00Z",
                             "2026-1-21T12:00:00Z"}) {
        EXPECT_EQ(parseInstant(text), std::nullopt) << text;
    }
}

TEST(ParseInstant, RefusesWhatIsTooFarOff) {
    EXPECT_EQ(parseInstant("0000-01-01T00:00:00Z"), std::nullopt);
    EXPECT_EQ(parseInstant("0001-01-01T00:00:00Z"), std::nullopt);
    EXPECT_EQ(parseInstant("1677-09-21T00:00:00Z"), std::nullopt);
    EXPECT_EQ(parseInstant("9999-12-31T23:59:59Z"), std::nullopt);
    EXPECT_EQ(parseInstant("2262-04-12T00:00:00Z"), std::nullopt);
    EXPECT_EQ(parseInstant("1678-01-01T00:00:00Z"), Instant(-9214560000s));
    EXPECT_EQ(parseInstant("2262-04-11T23:47:15.999999999Z"), Instant(9223372035999999999ns));
}

TEST(FormatInstant, ShowsTheMillisecondsThatHavePassed) {
    EXPECT_EQ(formatInstant(noon), "2026-11-21T12:00:00.000Z");
    EXPECT_EQ(formatInstant(noon + 1999999ns), "2026-11-21T12:00:00.001Z");
    EXPECT_EQ(formatInstant(Instant() - 1ns), "1969-12-31T23:59:59.999Z");
    EXPECT_EQ(formatInstant(Instant(1709210096s + 7ms)), "2024-02-29T12:34:56.007Z");
    EXPECT_EQ(formatInstant(Instant::max()), "2262-04-11T23:47:16.854Z");
    EXPECT_EQ(formatInstant(Instant::min()), "1677-09-21T00:12:43.145Z");
}

}  // namespace
}  // namespace morvane
