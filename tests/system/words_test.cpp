// The functions without a state, through the driver.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Words : public SystemTest {};

TEST_F(Words, OfSizes) {
    const std::vector<std::pair<double, std::string>> sizes{
        {0, "1 KB"},       {0.0004, "1 KB"},   {0.5, "500 KB"},  {0.9995, "1000 KB"}, {1, "1 MB"},
        {999.4, "999 MB"}, {999.6, "1000 MB"}, {1000, "1.0 GB"}, {1234, "1.2 GB"}};
    for (const auto& [mb, words] : sizes) {
        EXPECT_EQ(driver().call("sizeText", {{"mb", mb}}), words);
    }
    const std::vector<std::pair<double, std::string>> capacities{
        {512.4, "512 GB"}, {99.5, "99.5 GB"}, {64, "64 GB"}, {99.96, "100.0 GB"}, {100, "100 GB"}};
    for (const auto& [gb, words] : capacities) {
        EXPECT_EQ(driver().call("capacityText", {{"gb", gb}}), words);
    }
}

TEST_F(Words, OfNames) {
    EXPECT_EQ(driver().call("looksLikeBundleID", {{"name", "com.acme.App"}}), true);
    EXPECT_EQ(driver().call("looksLikeBundleID", {{"name", "com.acme"}}), false);
    EXPECT_EQ(driver().call("prettyAppName", {{"bundleID", "com.spotify.client"}}), "Spotify");
    EXPECT_EQ(driver().call("prettyAppName", {{"bundleID", "com.acme.mac.app"}}), "Acme");
    EXPECT_EQ(driver().call("prettyAppName", {{"bundleID", "app"}}), "App");
    EXPECT_EQ(driver().call("normalisedName", {{"text", "Google Chrome 2"}}), "googlechrome");
    EXPECT_EQ(driver().call("parseDockerSize", {{"text", "1.5kB (10%)"}}), 1500);
    EXPECT_EQ(driver().call("parseDockerSize", {{"text", "much"}}), nullptr);
    EXPECT_EQ(driver().call("usedWords", {{"date", "2027-01-01T00:00:00Z"}}), "Used today");
}

TEST_F(Words, OfDates) {
    const std::vector<std::pair<std::string, std::string>> words{
        {"2026-06-16T00:00:00Z", "Today"},          {"2026-06-14T23:59:00Z", "Yesterday"},
        {"2026-06-02T12:00:00Z", "Last week"},      {"2026-06-01T12:00:00Z", "2 weeks ago"},
        {"2026-05-17T12:00:00Z", "4 weeks ago"},    {"2026-05-16T12:00:00Z", "1 month ago"},
        {"2026-04-17T12:00:00Z", "1 month ago"},    {"2026-04-16T12:00:00+02:00", "2 months ago"},
        {"2025-06-15T12:00:00.123Z", "1 year ago"}, {"2024-06-16T12:00:00Z", "1 year ago"},
        {"2024-06-15T12:00:00Z", "2 years ago"}};
    for (const auto& [date, text] : words) {
        EXPECT_EQ(
            driver().call("relativeDayText", {{"date", date}, {"now", "2026-06-15T12:00:00Z"}}),
            text)
            << date;
    }
}

}  // namespace
}  // namespace morvane::test
