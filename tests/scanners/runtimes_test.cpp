#include "scanners/runtimes.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

constexpr const char* ios = "com.apple.platform.iphonesimulator";

// What the tool writes of one runtime with `fields` beside an identifier and a size.
std::string listing(const std::string& fields) {
    return R"({"x": {"identifier": "R1", "sizeBytes": 10)" + fields + "}}";
}

TEST(PlatformName, KnowsFourPlatforms) {
    EXPECT_EQ(platformName("com.apple.platform.iphonesimulator"), "iOS");
    EXPECT_EQ(platformName("com.apple.platform.watchsimulator"), "watchOS");
    EXPECT_EQ(platformName("com.apple.platform.appletvsimulator"), "tvOS");
    EXPECT_EQ(platformName("com.apple.platform.xrsimulator"), "visionOS");
    EXPECT_EQ(platformName("com.apple.platform.IPhoneSimulator"), "Simulator");
    EXPECT_EQ(platformName(""), "Simulator");
}

TEST(Runtimes, AreReadFromWhatTheToolWrites) {
    EXPECT_THAT(runtimesIn(R"({
        "B": {"identifier": "R2", "deletable": true, "sizeBytes": 7000000000,
              "platformIdentifier": "com.apple.platform.xrsimulator", "version": "2.1",
              "state": "Ready", "lastUsedAt": "2026-01-01T00:00:00Z"},
        "A": {"identifier": "R1", "sizeBytes": 8000000000.75}})"),
                UnorderedElementsAre(Runtime{"R1", "Simulator", "", 8'000'000'000},
                                     Runtime{"R2", "visionOS", "2.1", 7'000'000'000}));
}

TEST(Runtimes, ThatMayNotGoAreLeftOut) {
    EXPECT_THAT(runtimesIn(listing(R"(, "deletable": false)")), IsEmpty());
    EXPECT_THAT(runtimesIn(listing(R"(, "deletable": true)")), SizeIs(1));
    EXPECT_THAT(runtimesIn(listing(R"(, "deletable": "no")")), SizeIs(1));
    EXPECT_THAT(runtimesIn(listing(R"(, "deletable": null)")), SizeIs(1));
    EXPECT_THAT(runtimesIn(listing("")), SizeIs(1));
}

TEST(Runtimes, WithoutAnIdentifierAreLeftOut) {
    EXPECT_THAT(runtimesIn(R"({"x": {"sizeBytes": 10}})"), IsEmpty());
    EXPECT_THAT(runtimesIn(R"({"x": {"identifier": 7, "sizeBytes": 10}})"), IsEmpty());
    EXPECT_THAT(runtimesIn(R"({"x": {"identifier": null, "sizeBytes": 10}})"), IsEmpty());
}

TEST(Runtimes, WithoutASizeAreLeftOut) {
    const auto sized = [](const std::string& size) {
        return runtimesIn(R"({"x": {"identifier": "R1", "sizeBytes": )" + size + "}}");
    };
    EXPECT_THAT(runtimesIn(R"({"x": {"identifier": "R1"}})"), IsEmpty());
    for (const char* size : {"\"10\"", "true", "null", "[10]", "{}", "0", "-1", "0.9", "1e300",
                             "-1e300", "9223372036854775808", "18446744073709551615", "1e16"}) {
        EXPECT_THAT(sized(size), IsEmpty()) << size;
    }
    EXPECT_THAT(sized("1"), SizeIs(1));
    EXPECT_THAT(sized("1.9"), ElementsAre(Runtime{"R1", "Simulator", "", 1}));
    EXPECT_THAT(sized("1e15"), SizeIs(1));
}

TEST(Runtimes, PassOverWordsOfAnotherType) {
    EXPECT_THAT(runtimesIn(listing(R"(, "version": 17.2, "platformIdentifier": ["a"])")),
                ElementsAre(Runtime{"R1", "Simulator", "", 10}));
}

TEST(Runtimes, TakeTheLastOfAKeyThatIsThereTwice) {
    EXPECT_THAT(runtimesIn(listing(R"(, "identifier": "R9")")),
                ElementsAre(Runtime{"R9", "Simulator", "", 10}));
}

TEST(Runtimes, OfAnythingButAnObjectOfObjectsAreNone) {
    for (const char* output :
         {"", "[]", "null", "12", "\"a\"", "{", "{}", R"([{"identifier": "R1", "sizeBytes": 1}])",
          R"({"x": {"identifier": "R1", "sizeBytes": 10}, "y": 3})",
          R"({"x": {"identifier": "R1", "sizeBytes": 10}} trailing)",
          "{\"x\": {\"identifier\": \"R\xff\", \"sizeBytes\": 10}}",
          R"({"x": {"identifier": "R1", "sizeBytes": NaN}})"}) {
        EXPECT_THAT(runtimesIn(output), IsEmpty()) << output;
    }
    EXPECT_THAT(runtimesIn(std::string(100'000, '[')), IsEmpty());
}

TEST(Runtimes, ThatAreFarTooManyDoNotOverflowTheirSum) {
    std::string output = "{";
    for (int index = 0; index < 20'000; ++index) {
        if (index > 0) output += ",";
        output += "\"" + std::to_string(index) + R"(":{"identifier":"R)" + std::to_string(index) +
                  R"(","sizeBytes":1000000000000000})";
    }
    EXPECT_THAT(runtimesIn(output + "}"), SizeIs(4096));
}

TEST(RuntimeItems, AreRemovedWithTheTool) {
    EXPECT_THAT(
        runtimeItems({{"R1", "iOS", "17.2", 7'000'000'000}}),
        ElementsAre(CleanupItem{
            .id = "rt:R1",
            .name = "iOS 17.2 runtime",
            .bytes = 7'000'000'000,
            .safety = Safety::review,
            .location = "Simulator runtime · removed with simctl",
            .explanation = "",
            .lastUsed = "Newest iOS",
            .revealURL = std::nullopt,
            .action = CommandAction{"/usr/bin/xcrun", {"simctl", "runtime", "delete", "R1"}}}));
}

TEST(RuntimeItems, AskForReviewOfTheNewestOfEachPlatform) {
    const auto items = runtimeItems({{"a", "iOS", "17.9", 1},
                                     {"b", "iOS", "17.10", 1},
                                     {"c", "iOS", "9.3", 1},
                                     {"d", "tvOS", "9.0", 1},
                                     {"e", "iOS", "17.10", 1}});
    std::vector<std::pair<Safety, std::string>> found;
    for (const CleanupItem& item : items) found.emplace_back(item.safety, item.lastUsed);
    EXPECT_THAT(
        found, ElementsAre(Pair(Safety::safe, "Older version"), Pair(Safety::review, "Newest iOS"),
                           Pair(Safety::safe, "Older version"), Pair(Safety::review, "Newest tvOS"),
                           Pair(Safety::review, "Newest iOS")));
}

TEST(RuntimeItems, CountNoRuntimeThatMayNotGoAmongTheNewest) {
    const std::string output =
        std::string(R"({"a": {"identifier": "old", "sizeBytes": 1, "version": "17.0",)") +
        R"("platformIdentifier": ")" + ios +
        R"("}, "b": {"identifier": "new", "sizeBytes": 1, "version": "18.0", "deletable": false,)" +
        R"("platformIdentifier": ")" + ios + R"("}})";
    const auto items = runtimeItems(runtimesIn(output));
    ASSERT_THAT(idsOf(items), ElementsAre("rt:old"));
    EXPECT_EQ(items[0].safety, Safety::review);
}

TEST(RuntimeItems, WithoutAVersionHaveADoubleBlankInTheirName) {
    EXPECT_EQ(runtimeItems({{"a", "iOS", "", 1}}).at(0).name, "iOS  runtime");
}

}  // namespace
}  // namespace morvane::CleanupScanner
