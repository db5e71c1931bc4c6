#include "scanners/archives.h"

#include "scanners/plists.h"
#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Archives : public ScannerTest {
protected:
    const Path folder = library("Developer/Xcode/Archives");

    void add(std::string_view below, PlistDictionary info, std::int64_t bytes = 10'000) {
        files.addFile(folder / below / "dSYMs/data", bytes - 4096);
        files.addContents(folder / below / "Info.plist", plistOf(std::move(info)));
    }
    // The name of the one archive with this in its property list.
    [[nodiscard]] std::string nameWith(PlistDictionary info) {
        add("2026-03-02/File.xcarchive", std::move(info));
        const auto items = scanArchives(scan());
        return items.empty() ? "" : items.front().name;
    }
    [[nodiscard]] static PropertyList properties(PlistDictionary values) {
        return PropertyList{std::move(values)};
    }
};

TEST_F(Archives, AreNamedByTheirPropertyList) {
    add("2026-03-02/Writer 02.03.xcarchive",
        {{"Name", text("Writer")},
         {"CreationDate", PropertyList{daysAgo(8)}},
         {"ApplicationProperties", properties({{"CFBundleShortVersionString", text("1.2")},
                                               {"CFBundleVersion", text("34")}})}});
    const Path day = folder / "2026-03-02";
    EXPECT_THAT(
        scanArchives(scan()),
        ElementsAre(CleanupItem{
            .id = "arc:/Users/sam/Library/Developer/Xcode/Archives/2026-03-02/"
                  "Writer 02.03.xcarchive",
            .name = "Writer 1.2 (34)",
            .bytes = 10'000,
            .safety = Safety::review,
            .location = "~/Library/Developer/Xcode/Archives/2026-03-02/Writer 02.03.xcarchive",
            .explanation = "",
            .lastUsed = "Made last week",
            .revealURL = day / "Writer 02.03.xcarchive",
            .action =
                TrashAction{{{day / "Writer 02.03.xcarchive", 10'000, files.identity(day)}}}}));
}

TEST_F(Archives, ShowNoBuildNumberAlone) {
    EXPECT_EQ(nameWith({{"Name", text("Writer")},
                        {"ApplicationProperties", properties({{"CFBundleVersion", text("34")}})}}),
              "Writer");
    EXPECT_EQ(nameWith({{"Name", text("Writer")},
                        {"ApplicationProperties",
                         properties({{"CFBundleShortVersionString", text("1.2")}})}}),
              "Writer 1.2");
}

TEST_F(Archives, WithoutANameGoByTheirFile) {
    EXPECT_EQ(nameWith({{"ApplicationProperties",
                         properties({{"CFBundleShortVersionString", text("1.2")}})}}),
              "File 1.2");
    EXPECT_EQ(nameWith({{"Name", PropertyList{std::int64_t{3}}},
                        {"ApplicationProperties", text("none")},
                        {"CreationDate", text("today")}}),
              "File");
}

TEST_F(Archives, WithABrokenPropertyListGoByTheirFile) {
    files.addFile(folder / "d/File.xcarchive/data", 10);
    for (const std::string& broken : brokenPlists) {
        files.addContents(folder / "d/File.xcarchive/Info.plist", broken);
        const auto items = scanArchives(scan());
        ASSERT_THAT(namesOf(items), ElementsAre("File")) << broken;
        EXPECT_EQ(items[0].lastUsed, "");
    }
}

TEST_F(Archives, HaveExactlyThatExtensionAndLieInAFolderOfADay) {
    files.addFile(folder / "d/A.xcarchive/data", 10);
    files.addFile(folder / "d/B.XCARCHIVE/data", 10);
    files.addFile(folder / "d/C.zip", 10);
    files.addFile(folder / "D.xcarchive/data", 10);
    files.addFile(folder / "d/deeper/E.xcarchive/data", 10);
    EXPECT_THAT(namesOf(scanArchives(scan())), ElementsAre("A"));
}

TEST_F(Archives, OfNoBytesAreLeftOut) {
    files.addFolder(folder / "d/A.xcarchive");
    EXPECT_THAT(scanArchives(scan()), IsEmpty());
}

TEST_F(Archives, OfAllDaysComeLargestFirst) {
    add("2026-01-01/A.xcarchive", {}, 5000);
    add("2026-01-02/B.xcarchive", {}, 7000);
    add("2026-01-02/C.xcarchive", {}, 6000);
    EXPECT_THAT(namesOf(scanArchives(scan())), ElementsAre("B", "C", "A"));
}

}  // namespace
}  // namespace morvane::CleanupScanner
