#include "scanners/frame.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Frame : public ScannerTest {};

TEST_F(Frame, ListsWhatIsNotHiddenInTheDisksOrder) {
    files.addFile(library("Z/b"), 1);
    files.addFile(library("Z/.hidden"), 1);
    files.addFolder(library("Z/a"));
    files.addFile(library("Z/flagged"), 1);
    files.change(library("Z/flagged"), [](Attributes& marks) { marks.isHidden = true; });
    EXPECT_THAT(listFolder(scan(), library("Z")), ElementsAre(library("Z/b"), library("Z/a")));
}

TEST_F(Frame, TakesAFolderThatCannotBeListedForAnEmptyOne) {
    files.addFile(library("Z/b"), 1);
    files.refuseReading(library("Z"));
    EXPECT_THAT(listFolder(scan(), library("Z")), IsEmpty());
    EXPECT_THAT(listFolder(scan(), library("Missing")), IsEmpty());
    EXPECT_THAT(listFolder(scan(), "/"), SizeIs(1));
}

TEST_F(Frame, MeasuresAFolderOfHiddenFilesAlone) {
    files.addFile(library("Z/.a"), 4096);
    files.addFile(library("Z/.deep/.b"), 8192);
    EXPECT_EQ(measure(scan(), library("Z")).bytes, 12288);
}

TEST_F(Frame, MeasuresAPackageToItsLastFile) {
    files.addFile("/Applications/Writer.app/Contents/MacOS/Writer", 1000);
    files.addFile("/Applications/Writer.app/Contents/Resources/Inner.bundle/x", 24);
    EXPECT_EQ(measure(scan(), "/Applications/Writer.app").bytes, 1024);
}

TEST_F(Frame, FollowsNoLinkInAMeasuredFolder) {
    files.addFile("/Big/file", 1'000'000);
    files.addFile(library("Z/a"), 10);
    files.addLink(library("Z/link"), "/Big", 7);
    EXPECT_EQ(measure(scan(), library("Z")).bytes, 10);
}

TEST_F(Frame, MeasuresALinkByItself) {
    files.addFile("/Big/file", 1'000'000);
    files.addLink(library("link"), "/Big", 7);
    const Measure found = measure(scan(), library("link"));
    EXPECT_EQ(found.bytes, 7);
    EXPECT_EQ(found.newest, std::nullopt);
}

TEST_F(Frame, MeasuresWithoutASubfolderThatDeniesAccess) {
    files.addFile(library("Z/a"), 10);
    files.addFile(library("Z/private/b"), 1000);
    files.addFile(library("Z/c"), 5);
    files.refuseReading(library("Z/private"));
    EXPECT_EQ(measure(scan(), library("Z")).bytes, 15);
}

TEST_F(Frame, KnowsTheLatestDateOfAFile) {
    files.addFile(library("Z/a"), 1, daysAgo(3));
    files.addFile(library("Z/b/c"), 1, daysAgo(2));
    files.addFile(library("Z/d"), 1);
    EXPECT_EQ(measure(scan(), library("Z")).newest, daysAgo(2));
    EXPECT_EQ(measure(scan(), library("Z/a")).newest, daysAgo(3));
    EXPECT_EQ(measure(scan(), library("Z/d")).newest, std::nullopt);
    files.addFolder(library("Empty"));
    EXPECT_EQ(measure(scan(), library("Empty")).newest, std::nullopt);
}

TEST_F(Frame, AsksForDatesOnlyWhereTheyAreUsed) {
    files.addFile(library("Z/a"), 5, daysAgo(3));
    EXPECT_EQ(folderSize(scan(), library("Z"), false).newest, std::nullopt);
    EXPECT_EQ(folderSize(scan(), library("Z"), true).newest, daysAgo(3));
}

TEST_F(Frame, MeasuresWhatCannotBeReadAsNothing) {
    files.addFile(library("broken"), 1000);
    files.breakAttributes(library("broken"));
    EXPECT_EQ(measure(scan(), library("broken")).bytes, 0);
    EXPECT_EQ(measure(scan(), library("missing")).bytes, 0);
    EXPECT_FALSE(measure(scan(), library("missing")).folder.isKnown());
    files.addFile(library("private/a"), 1000);
    files.refuseReading(library("private"));
    EXPECT_EQ(measure(scan(), library("private")).bytes, 0);
}

TEST_F(Frame, RemembersTheFolderAnItemLiesIn) {
    files.addFile(library("Z/a"), 1);
    EXPECT_EQ(measure(scan(), library("Z/a")).folder, files.identity(library("Z")));
    EXPECT_EQ(measure(scan(), library("Z")).folder, files.identity(system.platform.library()));
}

TEST_F(Frame, MeasuresPartsOfAtLeastAByteInOrder) {
    files.addFile(library("Z/b"), 1);
    files.addFile(library("Z/empty"), 0);
    files.addFile(library("Z/a"), 2);
    const auto parts = measureParts(
        scan(), {library("Z/b"), library("Z/empty"), library("Z/missing"), library("Z/a")});
    const FolderIdentity folder = files.identity(library("Z"));
    EXPECT_THAT(parts, ElementsAre(CleanupPart{library("Z/b"), 1, folder},
                                   CleanupPart{library("Z/a"), 2, folder}));
}

TEST_F(Frame, MeasuresNothingMoreOnceCancelled) {
    files.addFile(library("a"), 1);
    files.addFile(library("b"), 1);
    files.addFile(library("c"), 1);
    files.watch([&](std::string_view question, const Path& path) {
        if (question == "attributes" && path == library("b")) stop.request_stop();
    });
    const auto parts = measureParts(scan(), {library("a"), library("b"), library("c")});
    EXPECT_THAT(parts, SizeIs(2));
    EXPECT_FALSE(files.wasAsked("attributes /Users/sam/Library/c"));
}

TEST_F(Frame, AddsUpFolders) {
    files.addFile(library("A/a"), 10);
    files.addFile(library("B/b"), 20);
    EXPECT_EQ(totalSize(scan(), {library("A"), library("B"), library("C")}), 30);
    EXPECT_EQ(totalSize(scan(), {}), 0);
}

TEST_F(Frame, SortsLargestFirstAndKeepsTheOrderOfEquals) {
    const auto item = [](std::string id, std::int64_t bytes) {
        CleanupItem made;
        made.id = std::move(id);
        made.bytes = bytes;
        return made;
    };
    EXPECT_THAT(idsOf(sortedBySize({item("a", 1), item("b", 3), item("c", 1), item("d", 3)})),
                ElementsAre("b", "d", "a", "c"));
}

TEST_F(Frame, ShortensTheHomeFolderAlone) {
    EXPECT_EQ(shortened(scan(), library("Caches")), "~/Library/Caches");
    EXPECT_EQ(shortened(scan(), "/Users/samantha/Library"), "/Users/samantha/Library");
    EXPECT_EQ(shortened(scan(), home("a\xff")), "~/a%FF");
}

TEST_F(Frame, ReadsNoToolThatFailed) {
    system.processes.answer({"/bin/good", "x"}, {0, "said"});
    system.processes.answer({"/bin/bad"}, {1, "said"});
    EXPECT_EQ(toolOutput(scan(), "/bin/good", {"x"}, 5s), "said");
    EXPECT_EQ(toolOutput(scan(), "/bin/bad", {}, 5s), std::nullopt);
    EXPECT_EQ(toolOutput(scan(), "/bin/missing", {}, 5s), std::nullopt);
}

}  // namespace
}  // namespace morvane::CleanupScanner
