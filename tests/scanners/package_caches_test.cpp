#include "scanners/package_caches.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class PackageCaches : public ScannerTest {};

TEST_F(PackageCaches, AreOneItemAFolder) {
    files.addFile(home(".npm/_cacache/content/x"), 500, daysAgo(45));
    EXPECT_THAT(scanPackageCaches(scan()),
                ElementsAre(CleanupItem{.id = "pkg:.npm/_cacache",
                                        .name = "npm",
                                        .bytes = 500,
                                        .safety = Safety::regenerates,
                                        .location = "~/.npm/_cacache",
                                        .explanation = "",
                                        .lastUsed = "Used 1 month ago",
                                        .revealURL = "/Users/sam/.npm/_cacache",
                                        .action = TrashAction{{{"/Users/sam/.npm/_cacache", 500,
                                                                files.identity(home(".npm"))}}}}));
}

TEST_F(PackageCaches, KnowFourteenPlaces) {
    const std::vector<std::pair<std::string, std::string>> places{
        {"npm", ".npm/_cacache"},
        {"Yarn", "Library/Caches/Yarn"},
        {"pnpm", "Library/pnpm/store"},
        {"pnpm", "Library/Caches/pnpm"},
        {"Bun", ".bun/install/cache"},
        {"Homebrew", "Library/Caches/Homebrew"},
        {"CocoaPods", "Library/Caches/CocoaPods"},
        {"pip", "Library/Caches/pip"},
        {"Swift Package Manager", "Library/Caches/org.swift.swiftpm"},
        {"Go build cache", "Library/Caches/go-build"},
        {"Gradle", ".gradle/caches"},
        {"Cargo", ".cargo/registry/cache"},
        {"Maven", ".m2/repository"},
        {"Playwright browsers", "Library/Caches/ms-playwright"}};
    for (const auto& [name, path] : places) files.addFile(home(path) / "data", 100);
    const auto items = scanPackageCaches(scan());
    ASSERT_THAT(items, SizeIs(14));
    for (std::size_t index = 0; index < items.size(); ++index) {
        EXPECT_EQ(items[index].name, places[index].first);
        EXPECT_EQ(items[index].id, "pkg:" + places[index].second);
    }
}

TEST_F(PackageCaches, TellTheTwoOfPnpmApartByTheirIdAlone) {
    files.addFile(home("Library/Caches/pnpm/a"), 10);
    files.addFile(home("Library/pnpm/store/a"), 5);
    const auto items = scanPackageCaches(scan());
    EXPECT_THAT(idsOf(items), ElementsAre("pkg:Library/Caches/pnpm", "pkg:Library/pnpm/store"));
    EXPECT_THAT(namesOf(items), ElementsAre("pnpm", "pnpm"));
}

TEST_F(PackageCaches, ThatAreMissingEmptyOrUnreadableAreLeftOut) {
    files.addFolder(home("Library/Caches/Yarn"));
    files.addFile(home(".cargo/registry/cache/a"), 10);
    files.refuseReading(home(".cargo"));
    EXPECT_THAT(scanPackageCaches(scan()), IsEmpty());
}

TEST_F(PackageCaches, BehindALinkAreTheLinkAlone) {
    files.addFile("/Volumes/Fast/m2/a", 1'000'000);
    files.addLink(home(".m2/repository"), "/Volumes/Fast/m2", 16);
    files.addLink(home(".gradle/caches"), "/Volumes/Gone", 16);
    const auto items = scanPackageCaches(scan());
    ASSERT_THAT(namesOf(items), ElementsAre("Maven"));
    EXPECT_EQ(items[0].bytes, 16);
}

}  // namespace
}  // namespace morvane::CleanupScanner
