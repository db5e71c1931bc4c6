#include "scanners/crumbs.h"

#include "scanners/protected_names.h"
#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Crumbs : public ScannerTest {
protected:
    void addCache(std::string_view name, std::int64_t bytes = 1000) {
        files.addFile(library("Caches") / name / "data", bytes);
    }
    [[nodiscard]] std::vector<CleanupItem> crumbs(const std::set<std::string>& running = {}) const {
        return scanCrumbs(scan(), running);
    }
};

TEST_F(Crumbs, FindNothingOnAnEmptyDisk) {
    EXPECT_THAT(crumbs(), IsEmpty());
    files.remove(system.platform.library());
    EXPECT_THAT(crumbs(), IsEmpty());
}

TEST_F(Crumbs, GatherApplicationCachesInOneItem) {
    addCache("com.acme.Editor", 1000);
    addCache("Some Tool", 24);
    const FolderIdentity folder = files.identity(library("Caches"));
    EXPECT_THAT(
        crumbs(),
        ElementsAre(CleanupItem{
            .id = "caches",
            .name = "App caches",
            .bytes = 1024,
            .safety = Safety::safe,
            .location = "~/Library/Caches · 2 apps",
            .explanation =
                "Temporary files apps keep so things load faster. Apps quietly rebuild whatever "
                "they need, so clearing these is harmless. The first launch afterwards may be a "
                "touch slower. Caches of apps that are open right now are left alone.",
            .lastUsed = "",
            .revealURL = "/Users/sam/Library/Caches",
            .action = TrashAction{{{"/Users/sam/Library/Caches/com.acme.Editor", 1000, folder},
                                   {"/Users/sam/Library/Caches/Some Tool", 24, folder}}}}));
}

TEST_F(Crumbs, SayOneAppInTheSingular) {
    addCache("com.acme.Editor");
    EXPECT_EQ(itemOf(crumbs(), "caches").location, "~/Library/Caches · 1 app");
}

TEST_F(Crumbs, LeaveOutACacheWhoseAppIsOpen) {
    addCache("com.acme.Editor");
    addCache("com.acme.Editor.ShipIt");
    addCache("com.acme.Other");
    EXPECT_THAT(pathsOf(crumbs({"com.acme.Editor"}), "caches"),
                ElementsAre(library("Caches/com.acme.Other")));
    EXPECT_THAT(pathsOf(crumbs(), "caches"), SizeIs(3));
}

TEST_F(Crumbs, LeaveOutCachesOfTheSystem) {
    addCache("com.apple.Safari.extra");
    addCache("CloudKit");
    addCache("GeoServices");
    addCache("TemporaryItems");
    EXPECT_THAT(crumbs(), IsEmpty());
}

TEST_F(Crumbs, LeaveHomebrewToThePackageCaches) {
    addCache("Homebrew");
    EXPECT_THAT(crumbs(), IsEmpty());
    files.addFile("/opt/homebrew/bin/brew", 10);
    EXPECT_THAT(crumbs(), IsEmpty());
}

TEST_F(Crumbs, CompareProtectedNamesWithTheirCase) {
    addCache("homebrew");
    addCache("Pip");
    EXPECT_THAT(pathsOf(crumbs(), "caches"),
                ElementsAre(library("Caches/homebrew"), library("Caches/Pip")));
}

TEST_F(Crumbs, LeaveOutTheProgramsOwnCaches) {
    addCache("app.morvane.Morvane");
    addCache("app.morvane.Morvane.helper");
    addCache("app.morvane.MorvaneBeta");
    EXPECT_THAT(crumbs(), IsEmpty());
    system.platform.bundle.identifier.reset();
    addCache("Morvane");
    EXPECT_THAT(pathsOf(crumbs(), "caches"),
                ElementsAre(library("Caches/app.morvane.Morvane"),
                            library("Caches/app.morvane.Morvane.helper"),
                            library("Caches/app.morvane.MorvaneBeta")));
}

TEST_F(Crumbs, LeaveOutHiddenAndEmptyCaches) {
    addCache(".hidden");
    addCache("empty", 0);
    files.addFolder(library("Caches/com.acme.Nothing"));
    EXPECT_THAT(crumbs(), IsEmpty());
}

TEST_F(Crumbs, TakeNamesThatAreNotText) {
    addCache("bad\xff\nname");
    EXPECT_THAT(pathsOf(crumbs(), "caches"), ElementsAre(library("Caches/bad\xff\nname")));
}

TEST_F(Crumbs, OfferNothingBehindALinkButTheLink) {
    files.addFile("/Volumes/Big/data", 1'000'000);
    files.addLink(library("Caches/com.acme.Editor"), "/Volumes/Big", 12);
    EXPECT_EQ(itemOf(crumbs(), "caches").bytes, 12);
}

TEST_F(Crumbs, LeaveOutTheCacheOfAnOpenBrowser) {
    addCache("Google/Chrome", 100);
    addCache("com.apple.Safari", 20);
    const auto items = crumbs({"com.google.Chrome"});
    ASSERT_THAT(idsOf(items), ElementsAre("browsers"));
    EXPECT_THAT(pathsOf(items, "browsers"), ElementsAre(library("Caches/com.apple.Safari")));
    EXPECT_EQ(items[0].bytes, 20);
    EXPECT_EQ(items[0].safety, Safety::safe);
    EXPECT_EQ(items[0].name, "Browser caches");
    EXPECT_EQ(items[0].explanation,
              "Saved copies of images and pages from sites you’ve visited. Bookmarks, passwords "
              "and history are not touched. Browsers that are open are left alone.");
    EXPECT_EQ(items[0].revealURL, library("Caches/com.apple.Safari"));
}

TEST_F(Crumbs, OfferNoBrowserWhileAllAreOpen) {
    addCache("Google/Chrome");
    addCache("com.apple.Safari");
    EXPECT_THAT(crumbs({"com.google.Chrome", "com.apple.Safari"}), IsEmpty());
}

TEST_F(Crumbs, TakeBothPlacesOfFirefox) {
    addCache("Mozilla/Firefox", 1);
    addCache("Firefox", 2);
    const CleanupItem item = itemOf(crumbs(), "browsers");
    EXPECT_THAT(pathsOf(item),
                ElementsAre(library("Caches/Firefox"), library("Caches/Mozilla/Firefox")));
    EXPECT_EQ(item.location, "~/Library/Caches/Firefox · ~/Library/Caches/Mozilla/Firefox");
    EXPECT_THAT(crumbs({"org.mozilla.firefox"}), IsEmpty());
}

TEST_F(Crumbs, KnowTheBrowsersInTheirOrder) {
    for (const char* name :
         {"com.vivaldi.Vivaldi", "company.thebrowser.Browser", "com.operasoftware.Opera",
          "Microsoft Edge", "Mozilla/Firefox", "Firefox", "BraveSoftware/Brave-Browser",
          "Google/Chrome", "com.apple.Safari"}) {
        addCache(name);
    }
    EXPECT_THAT(
        pathsOf(crumbs(), "browsers"),
        ElementsAre(library("Caches/com.apple.Safari"), library("Caches/Google/Chrome"),
                    library("Caches/BraveSoftware/Brave-Browser"), library("Caches/Firefox"),
                    library("Caches/Mozilla/Firefox"), library("Caches/Microsoft Edge"),
                    library("Caches/com.operasoftware.Opera"),
                    library("Caches/company.thebrowser.Browser"),
                    library("Caches/com.vivaldi.Vivaldi")));
    EXPECT_THAT(crumbs({"com.apple.Safari", "com.google.Chrome", "com.brave.Browser",
                        "org.mozilla.firefox", "com.microsoft.edgemac", "com.operasoftware.Opera",
                        "company.thebrowser.Browser", "com.vivaldi.Vivaldi"}),
                IsEmpty());
}

TEST_F(Crumbs, TakeLogsFromBeforeTheCutOffAlone) {
    files.addFile(library("Logs/at.log"), 100, ago(2'592'000s));
    files.addFile(library("Logs/before.log"), 10, ago(2'592'000s + 1ns));
    files.addFile(library("Logs/new.log"), 1000, ago(1s));
    files.addFile(library("Logs/undated.log"), 1000);
    files.addFile(library("Logs/App/deep/.old"), 5, daysAgo(300));
    const auto items = crumbs();
    const CleanupItem item = itemOf(items, "logs");
    EXPECT_THAT(pathsOf(item),
                ElementsAre(library("Logs/App/deep/.old"), library("Logs/before.log")));
    EXPECT_EQ(item.bytes, 15);
    EXPECT_EQ(item.name, "Old log files");
    EXPECT_EQ(item.safety, Safety::safe);
    EXPECT_EQ(item.location, "~/Library/Logs · 2 files");
    EXPECT_EQ(item.explanation,
              "Notes apps and macOS write while running, mostly useful for troubleshooting, plus "
              "old crash reports. Only logs older than 30 days are included.");
    EXPECT_EQ(item.revealURL, library("Logs"));
    ASSERT_NE(trashParts(item), nullptr);
    EXPECT_EQ(trashParts(item)->front().folder, files.identity(library("Logs/App/deep")));
    EXPECT_EQ(trashParts(item)->back().folder, files.identity(library("Logs")));
}

TEST_F(Crumbs, SayOneFileInTheSingular) {
    files.addFile(library("Logs/a.log"), 10, daysAgo(31));
    EXPECT_EQ(itemOf(crumbs(), "logs").location, "~/Library/Logs · 1 file");
}

TEST_F(Crumbs, OfferNoLogsThatTakeNoRoom) {
    files.addFile(library("Logs/a.log"), 0, daysAgo(31));
    files.addFile(library("Logs/b.log"), 0, daysAgo(31));
    EXPECT_THAT(crumbs(), IsEmpty());
}

TEST_F(Crumbs, TakeNeitherLinksNorPipesForLogs) {
    files.addFile("/Elsewhere/old.log", 1000, daysAgo(100));
    files.addLink(library("Logs/link.log"), "/Elsewhere/old.log", 10);
    files.addLink(library("Logs/folder"), "/Elsewhere", 10);
    files.addOther(library("Logs/pipe"));
    EXPECT_THAT(crumbs(), IsEmpty());
}

TEST_F(Crumbs, PassOverLogsThatVanishOrCannotBeRead) {
    files.addFile(library("Logs/private/a.log"), 10, daysAgo(31));
    files.addFile(library("Logs/broken.log"), 10, daysAgo(31));
    files.addFile(library("Logs/going/b.log"), 10, daysAgo(31));
    files.addFile(library("Logs/here.log"), 10, daysAgo(31));
    files.refuseReading(library("Logs/private"));
    files.breakAttributes(library("Logs/broken.log"));
    files.watch([&](std::string_view question, const Path& path) {
        if (question == "walk" && path == library("Logs/going")) files.remove(path);
    });
    EXPECT_THAT(pathsOf(crumbs(), "logs"), ElementsAre(library("Logs/here.log")));
}

TEST_F(Crumbs, ComeInAFixedOrderWhateverTheirSize) {
    files.addFile(library("Logs/a.log"), 1'000'000, daysAgo(31));
    addCache("com.apple.Safari", 5000);
    addCache("com.acme.Editor", 1);
    EXPECT_THAT(idsOf(crumbs()), ElementsAre("caches", "browsers", "logs"));
}

TEST_F(Crumbs, OfUnreadableFoldersAreNone) {
    addCache("com.acme.Editor");
    files.addFile(library("Logs/a.log"), 10, daysAgo(31));
    files.refuseReading(library("Caches"));
    files.refuseReading(library("Logs"));
    EXPECT_THAT(crumbs(), IsEmpty());
}

TEST(ProtectedCacheNames, AreTheThirtyOne) {
    int count = 0;
    for (const char* name : {"Google",
                             "BraveSoftware",
                             "Firefox",
                             "Mozilla",
                             "Microsoft Edge",
                             "com.operasoftware.Opera",
                             "company.thebrowser.Browser",
                             "com.vivaldi.Vivaldi",
                             "Homebrew",
                             "CocoaPods",
                             "pip",
                             "Yarn",
                             "pnpm",
                             "go-build",
                             "org.swift.swiftpm",
                             "ms-playwright",
                             "node-gyp",
                             "deno",
                             "electron",
                             "electron-builder",
                             "CloudKit",
                             "FamilyCircle",
                             "familycircled",
                             "GeoServices",
                             "PassKit",
                             "Animoji",
                             "ARFileCache",
                             "Metadata",
                             "SiriTTS",
                             "SpeechModels",
                             "TemporaryItems"}) {
        EXPECT_TRUE(isProtectedCacheName(name)) << name;
        ++count;
    }
    EXPECT_EQ(count, 31);
    EXPECT_FALSE(isProtectedCacheName("google"));
    EXPECT_FALSE(isProtectedCacheName(""));
}

}  // namespace
}  // namespace morvane::CleanupScanner
