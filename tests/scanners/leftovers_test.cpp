#include "scanners/leftovers.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Leftovers : public ScannerTest {
protected:
    void add(std::string_view below, std::int64_t bytes = 2'000'000,
             std::optional<Instant> modified = {}) {
        files.addFile(library(below) / "data", bytes, modified);
    }
    [[nodiscard]] std::vector<CleanupItem> leftovers(const std::set<std::string>& installed = {},
                                                     bool includeContainers = false) const {
        return scanLeftovers(scan(), installed, includeContainers);
    }
};

TEST_F(Leftovers, OfARemovedAppAreNamedAfterIt) {
    add("Application Support/com.acme.Editor", 500'000'000, daysAgo(21));
    const FolderIdentity folder = files.identity(library("Application Support"));
    EXPECT_THAT(
        leftovers(),
        ElementsAre(CleanupItem{
            .id = "leftover:com.acme.Editor",
            .name = "Editor (app was removed)",
            .bytes = 500'000'000,
            .safety = Safety::review,
            .location = "~/Library/Application Support/com.acme.Editor",
            .explanation =
                "Settings and data left behind by Editor (com.acme.Editor), which is no longer "
                "installed. Last changed 3 weeks ago. If you might reinstall it someday, you may "
                "want to keep these.",
            .lastUsed = "",
            .revealURL = "/Users/sam/Library/Application Support/com.acme.Editor",
            .action = TrashAction{{{"/Users/sam/Library/Application Support/com.acme.Editor",
                                    500'000'000, folder}}}}));
}

TEST_F(Leftovers, WithoutADateSayNothingOfTheLastChange) {
    add("Caches/com.acme.Editor");
    EXPECT_EQ(leftovers().at(0).explanation,
              "Settings and data left behind by Editor (com.acme.Editor), which is no longer "
              "installed. If you might reinstall it someday, you may want to keep these.");
}

TEST_F(Leftovers, OfAVendorWithAnotherAppInstalledAreLeftAlone) {
    add("Application Support/com.acme.Editor");
    add("Caches/com.acme-labs.Editor");
    EXPECT_THAT(idsOf(leftovers({"COM.Acme.Other"})), ElementsAre("leftover:com.acme-labs.Editor"));
    EXPECT_THAT(leftovers({"com.acme", "com..acme-labs"}), IsEmpty());
    EXPECT_THAT(leftovers({"acme", "", "."}), SizeIs(2));
}

TEST_F(Leftovers, AreNamedByIdentifiersAlone) {
    add("Application Support/Adobe");
    add("Application Support/My Project");
    add("Application Support/com.acme");
    add("Application Support/.com.acme.Hidden");
    add("Application Support/com.acme.Bad\xff");
    EXPECT_THAT(leftovers(), IsEmpty());
}

TEST_F(Leftovers, OfAppleAreNeverReported) {
    add("Application Support/com.apple.something");
    add("Caches/COM.APPLE.something");
    files.addFile(library("Preferences/com.Apple.x.plist"), 2'000'000);
    EXPECT_THAT(leftovers(), IsEmpty());
    add("Caches/com.applebee.Menu");
    EXPECT_THAT(idsOf(leftovers()), ElementsAre("leftover:com.applebee.Menu"));
}

TEST_F(Leftovers, OfTheProgramItselfAreNeverReported) {
    add("Caches/app.morvane.Morvane");
    files.addFile(library("Preferences/app.morvane.Morvane.plist"), 2'000'000);
    EXPECT_THAT(leftovers(), IsEmpty());
    system.platform.bundle.identifier.reset();
    EXPECT_THAT(idsOf(leftovers()), ElementsAre("leftover:app.morvane.Morvane"));
}

TEST_F(Leftovers, WithProtectedNamesAreLeftAlone) {
    add("Caches/org.swift.swiftpm");
    add("Application Support/com.vivaldi.Vivaldi");
    EXPECT_THAT(leftovers(), IsEmpty());
}

TEST_F(Leftovers, OfOneAppJoinInOneItem) {
    add("Caches/com.acme.Editor", 500'000, daysAgo(1));
    add("Application Support/com.acme.Editor", 600'000, daysAgo(9));
    const auto items = leftovers();
    ASSERT_THAT(items, SizeIs(1));
    EXPECT_EQ(items[0].bytes, 1'100'000);
    EXPECT_EQ(items[0].location, "~/Library/Application Support/com.acme.Editor · +1 more");
    EXPECT_EQ(items[0].revealURL, library("Application Support/com.acme.Editor"));
    EXPECT_THAT(pathsOf(items[0]), ElementsAre(library("Application Support/com.acme.Editor"),
                                               library("Caches/com.acme.Editor")));
    EXPECT_THAT(items[0].explanation, testing::HasSubstr(" Last changed yesterday. "));
}

TEST_F(Leftovers, AreLookedForInEachPlace) {
    for (const char* folder :
         {"Application Support/com.acme.Editor", "Caches/com.acme.Editor",
          "Caches/com.acme.Editor.ShipIt", "Saved Application State/com.acme.Editor.savedState",
          "HTTPStorages/com.acme.Editor", "WebKit/com.acme.Editor", "Logs/com.acme.Editor",
          "Application Scripts/com.acme.Editor", "Containers/com.acme.Editor",
          "Group Containers/com.acme.Editor", "Saved Application State/com.acme.Editor"}) {
        add(folder, 100'000);
    }
    for (const char* file :
         {"Preferences/com.acme.Editor.plist", "HTTPStorages/com.acme.Editor.binarycookies",
          "Cookies/com.acme.Editor.binarycookies", "Cookies/com.acme.Editor"}) {
        files.addFile(library(file), 100'000);
    }
    const auto items = leftovers();
    ASSERT_THAT(items, SizeIs(1));
    EXPECT_EQ(items[0].id, "leftover:com.acme.Editor");
    EXPECT_THAT(
        pathsOf(items[0]),
        ElementsAre(library("Application Support/com.acme.Editor"),
                    library("Caches/com.acme.Editor"), library("Caches/com.acme.Editor.ShipIt"),
                    library("Preferences/com.acme.Editor.plist"),
                    library("Saved Application State/com.acme.Editor.savedState"),
                    library("HTTPStorages/com.acme.Editor"),
                    library("HTTPStorages/com.acme.Editor.binarycookies"),
                    library("WebKit/com.acme.Editor"), library("Logs/com.acme.Editor"),
                    library("Cookies/com.acme.Editor.binarycookies"),
                    library("Application Scripts/com.acme.Editor")));
}

TEST_F(Leftovers, InContainersAreTouchedOnlyWhenAsked) {
    add("Containers/com.acme.Editor");
    EXPECT_THAT(leftovers(), IsEmpty());
    EXPECT_FALSE(files.wasAsked("list /Users/sam/Library/Containers"));
    EXPECT_THAT(pathsOf(leftovers({}, true), "leftover:com.acme.Editor"),
                ElementsAre(library("Containers/com.acme.Editor")));
}

TEST_F(Leftovers, OfAMillionBytesAreReportedAndNoneBelow) {
    add("Caches/com.acme.Editor", 1'000'000);
    add("Caches/org.tiny.App", 999'999);
    EXPECT_THAT(idsOf(leftovers()), ElementsAre("leftover:com.acme.Editor"));
}

TEST_F(Leftovers, TakePropertyListsThroughTheirOwnRowAlone) {
    files.addFile(library("Preferences/com.acme.Editor.plist"), 2'000'000);
    add("Application Support/com.acme.Editor.plist");
    add("Preferences/com.acme.Folder");
    add("Caches/com.acme.Editor.plist.old");
    EXPECT_THAT(pathsOf(leftovers(), "leftover:com.acme.Editor"),
                ElementsAre(library("Preferences/com.acme.Editor.plist")));
    EXPECT_THAT(leftovers(), SizeIs(1));
}

TEST_F(Leftovers, OfAnAppTheSystemStillKnowsAreLeftAlone) {
    add("Application Support/com.acme.Editor");
    files.addFolder("/Volumes/Work/Editor.app");
    system.workspace.registerApplication("com.acme.Editor", "/Volumes/Work/Editor.app");
    EXPECT_THAT(leftovers(), IsEmpty());
    EXPECT_FALSE(files.wasAsked("walk /Users/sam/Library/Application Support/com.acme.Editor"));
    files.remove("/Volumes/Work/Editor.app");
    EXPECT_THAT(leftovers(), SizeIs(1));
}

TEST_F(Leftovers, KeepTheSpellingOfTheName) {
    add("Application Support/Com.Acme.Editor", 3'000'000);
    add("Caches/com.acme.Editor", 2'000'000);
    const auto items = leftovers();
    EXPECT_THAT(idsOf(items), ElementsAre("leftover:Com.Acme.Editor", "leftover:com.acme.Editor"));
    EXPECT_THAT(
        items.at(0).explanation,
        testing::StartsWith("Settings and data left behind by Editor (Com.Acme.Editor), which is"));
}

TEST_F(Leftovers, ComeLargestFirst) {
    add("Caches/com.acme.Editor", 2'000'000);
    add("Caches/org.big.App", 3'000'000);
    EXPECT_THAT(idsOf(leftovers()),
                ElementsAre("leftover:org.big.App", "leftover:com.acme.Editor"));
}

TEST_F(Leftovers, HoldPartsOfNoBytesToo) {
    add("Application Support/com.acme.Editor");
    files.addFile(library("Preferences/com.acme.Editor.plist"), 0, daysAgo(0));
    files.addFile(library("Cookies/com.acme.Editor.binarycookies"), 999, daysAgo(0));
    files.breakAttributes(library("Cookies/com.acme.Editor.binarycookies"));
    const auto items = leftovers();
    ASSERT_THAT(items, SizeIs(1));
    EXPECT_THAT(pathsOf(items[0]), SizeIs(3));
    EXPECT_EQ(items[0].bytes, 2'000'000);
    EXPECT_EQ(items[0].location, "~/Library/Application Support/com.acme.Editor · +2 more");
    EXPECT_THAT(items[0].explanation, testing::HasSubstr(" Last changed today. "));
}

TEST_F(Leftovers, MeasureALinkByItself) {
    files.addFile("/Volumes/Big/data", 5'000'000);
    files.addLink(library("Caches/com.acme.Editor"), "/Volumes/Big", 20);
    EXPECT_THAT(leftovers(), IsEmpty());
}

TEST_F(Leftovers, AreSizedOnlyOnceTheirNamesHavePassed) {
    add("Application Support/Adobe");
    add("Application Support/com.apple.mail");
    add("Caches/com.acme.Editor");
    EXPECT_THAT(leftovers({"com.acme.Other"}), IsEmpty());
    for (const std::string& question : files.history()) {
        EXPECT_FALSE(question.starts_with("walk ")) << question;
        EXPECT_FALSE(question.starts_with("attributes ")) << question;
    }
}

TEST_F(Leftovers, FoundBeforeACancellationAreKept) {
    const Path first = library("Preferences/com.acme.A.plist");
    files.addFile(first, 2'000'000);
    files.addFile(library("Preferences/com.acme.B.plist"), 2'000'000);
    files.watch([&](std::string_view question, const Path& path) {
        if (question == "attributes" && path == first) stop.request_stop();
    });
    EXPECT_THAT(idsOf(leftovers()), ElementsAre("leftover:com.acme.A"));
}

TEST_F(Leftovers, InAFolderThatVanishesOrRefusesAreNone) {
    add("Caches/com.acme.Editor");
    add("Logs/com.acme.Editor");
    files.refuseReading(library("Logs"));
    files.watch([&](std::string_view question, const Path& path) {
        if (question == "attributes" && path == library("Caches/com.acme.Editor")) {
            files.remove(library("Caches"));
        }
    });
    EXPECT_THAT(leftovers(), IsEmpty());
}

}  // namespace
}  // namespace morvane::CleanupScanner
