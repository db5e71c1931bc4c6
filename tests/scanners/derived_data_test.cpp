#include "scanners/derived_data.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class DerivedData : public ScannerTest {
protected:
    const Path folder = library("Developer/Xcode/DerivedData");

    void add(std::string_view name, std::int64_t bytes, std::optional<Instant> modified = {}) {
        files.addFile(folder / name / "Build/data", bytes, modified);
    }
    // The name that a folder is shown by.
    [[nodiscard]] std::string shownAs(std::string_view name) {
        files.remove(folder);
        add(name, 1'000'000);
        const auto items = scanDerivedData(scan());
        return items.empty() ? "" : items.front().name;
    }
};

TEST_F(DerivedData, IsOneItemAProject) {
    add("Writer-abcdefghijklmnopqrstuvwxyzab", 2'000'000, daysAgo(3));
    EXPECT_THAT(scanDerivedData(scan()),
                ElementsAre(CleanupItem{
                    .id = "dd:/Users/sam/Library/Developer/Xcode/DerivedData/"
                          "Writer-abcdefghijklmnopqrstuvwxyzab",
                    .name = "Writer",
                    .bytes = 2'000'000,
                    .safety = Safety::regenerates,
                    .location = "~/Library/Developer/Xcode/DerivedData/"
                                "Writer-abcdefghijklmnopqrstuvwxyzab",
                    .explanation = "",
                    .lastUsed = "Used 3 days ago",
                    .revealURL = folder / "Writer-abcdefghijklmnopqrstuvwxyzab",
                    .action = TrashAction{{{folder / "Writer-abcdefghijklmnopqrstuvwxyzab",
                                            2'000'000, files.identity(folder)}}}}));
}

TEST_F(DerivedData, ShowsNamesWithoutTheHash) {
    EXPECT_EQ(shownAs("MyApp-abcdefghijklmnopqrstuvwxyzab"), "MyApp");
    EXPECT_EQ(shownAs("My-App"), "My-App");
    EXPECT_EQ(shownAs("My-App-abcdefghijklmnopqrst"), "My-App");  // 20 characters
    EXPECT_EQ(shownAs("My-App-abcdefghijklmnopqrs"),
              "My-App-abcdefghijklmnopqrs");               // 19 characters
    EXPECT_EQ(shownAs("My-éééééééééééééééééééé"), "My");   // 20 characters
    EXPECT_EQ(shownAs("My-éééééééééé"), "My-éééééééééé");  // 10, of 20 bytes
    EXPECT_EQ(shownAs("ModuleCache.noindex"), "Module cache");
    EXPECT_EQ(shownAs("SDKStatCaches.noindex"), "SDKStatCaches");
    EXPECT_EQ(shownAs("Some-abcdefghijklmnopqrstuvwxyzab.noindex"),
              "Some-abcdefghijklmnopqrstuvwxyzab");
    EXPECT_EQ(shownAs("Plain"), "Plain");
    EXPECT_EQ(shownAs("a\xff"), "a%FF");
}

TEST_F(DerivedData, BelowAMegabyteIsLeftOut) {
    add("Small", 999'999);
    add("Enough", 1'000'000);
    EXPECT_THAT(namesOf(scanDerivedData(scan())), ElementsAre("Enough"));
}

TEST_F(DerivedData, BuiltWithinADayAsksForReview) {
    add("Today", 1'000'000, ago(23h));  // yesterday by the calendar
    add("LastMoment", 1'000'000, ago(86'400s - 1ns));
    add("Yesterday", 1'000'000, ago(86'400s));
    add("ToCome", 1'000'000, ago(-5h));
    add("Undated", 1'000'000);
    const auto items = scanDerivedData(scan());
    std::vector<std::pair<Safety, std::string>> found;
    for (const CleanupItem& item : items) found.emplace_back(item.safety, item.lastUsed);
    EXPECT_THAT(
        found, ElementsAre(Pair(Safety::review, "Built today"), Pair(Safety::review, "Built today"),
                           Pair(Safety::regenerates, "Used yesterday"),
                           Pair(Safety::review, "Built today"), Pair(Safety::regenerates, "")));
}

TEST_F(DerivedData, TakesDatesFromTheEndsOfTime) {
    add("First", 1'000'000, Instant::min());
    add("Last", 1'000'000, Instant::max());
    const auto items = scanDerivedData(scan());
    ASSERT_THAT(namesOf(items), ElementsAre("First", "Last"));
    EXPECT_EQ(items[0].safety, Safety::regenerates);
    EXPECT_EQ(items[1].lastUsed, "Built today");
}

TEST_F(DerivedData, ComesLargestFirst) {
    add("A", 1'000'000);
    add("B", 3'000'000);
    add("C", 2'000'000);
    EXPECT_THAT(namesOf(scanDerivedData(scan())), ElementsAre("B", "C", "A"));
}

TEST_F(DerivedData, OfAMissingFolderIsNone) {
    EXPECT_THAT(scanDerivedData(scan()), IsEmpty());
}

}  // namespace
}  // namespace morvane::CleanupScanner
