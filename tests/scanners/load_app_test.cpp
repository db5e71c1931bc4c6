#include "scanners/inventory.h"
#include "scanners/plists.h"
#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class LoadApp : public ScannerTest {
protected:
    const Path editor = "/Applications/Editor.app";

    void addApp(const Path& bundle, PlistDictionary info) {
        files.addContents(bundle / "Contents/Info.plist", plistOf(std::move(info)));
    }
    void addEditor() {
        addApp(editor, {{"CFBundleIdentifier", text("com.acme.Editor")},
                        {"CFBundleShortVersionString", text("1.2")},
                        {"CFBundleVersion", text("34")}});
    }
    [[nodiscard]] std::optional<InstalledApp> load(const Path& bundle,
                                                   bool includeContainers = false) const {
        return loadApp(scan(), bundle, includeContainers, libraryNames(scan()));
    }
    [[nodiscard]] InstalledApp loaded(bool includeContainers = false) const {
        const auto app = load(editor, includeContainers);
        EXPECT_TRUE(app.has_value());
        return app.value_or(InstalledApp{});
    }
    [[nodiscard]] std::string versionWith(PlistDictionary info) {
        addApp(editor, std::move(info));
        return loaded().version;
    }
};

TEST_F(LoadApp, GathersWhatTheAppKeeps) {
    addEditor();
    files.addFile(editor / "Contents/MacOS/Editor", 100'000, daysAgo(1));
    files.addFile(library("Preferences/com.acme.Editor.plist"), 50, daysAgo(30));
    files.addFile(library("Caches/com.acme.Editor/data"), 7000, daysAgo(2));
    EXPECT_EQ(loaded(),
              (InstalledApp{.url = editor,
                            .bundleID = "com.acme.Editor",
                            .name = "Editor",
                            .version = "1.2",
                            .lastUsed = daysAgo(30),
                            .parts = {{"Application", editor, 104'096, false,
                                       files.identity("/Applications")},
                                      {"Preferences", library("Preferences/com.acme.Editor.plist"),
                                       50, false, files.identity(library("Preferences"))},
                                      {"Caches", library("Caches/com.acme.Editor"), 7000, false,
                                       files.identity(library("Caches"))}}}));
}

TEST_F(LoadApp, LeavesOutTheProgramItself) {
    addApp(editor, {{"CFBundleIdentifier", text("app.morvane.Morvane")}});
    EXPECT_EQ(load(editor), std::nullopt);
    system.platform.bundle.identifier.reset();
    EXPECT_NE(load(editor), std::nullopt);
}

TEST_F(LoadApp, LeavesOutAppleAppsWithoutAReceipt) {
    addApp("/Applications/Safari.app", {{"CFBundleIdentifier", text("com.apple.Safari")}});
    EXPECT_EQ(load("/Applications/Safari.app"), std::nullopt);
    addApp("/Applications/iMovie.app", {{"CFBundleIdentifier", text("com.apple.iMovie")}});
    files.addFile("/Applications/iMovie.app/Contents/_MASReceipt/receipt", 10);
    EXPECT_NE(load("/Applications/iMovie.app"), std::nullopt);
}

TEST_F(LoadApp, ListsAnAppWithoutAReadablePropertyList) {
    files.addFile(editor / "data", 10);
    files.addFile(library("Application Support/Editor/data"), 20);
    files.addFile(library("Application Support/com.acme.Editor/data"), 20);
    EXPECT_EQ(
        loaded(),
        (InstalledApp{.url = editor,
                      .bundleID = std::nullopt,
                      .name = "Editor",
                      .version = "—",
                      .lastUsed = std::nullopt,
                      .parts = {{"Application", editor, 10, false, files.identity("/Applications")},
                                {"Application Support", library("Application Support/Editor"), 20,
                                 false, files.identity(library("Application Support"))}}}));
    for (const std::string& broken : brokenPlists) {
        files.addContents(editor / "Contents/Info.plist", broken);
        EXPECT_EQ(loaded().version, "—") << broken;
    }
}

TEST_F(LoadApp, TakesTheShortVersionFirst) {
    EXPECT_EQ(
        versionWith({{"CFBundleShortVersionString", text("1.2")}, {"CFBundleVersion", text("34")}}),
        "1.2");
    EXPECT_EQ(versionWith({{"CFBundleVersion", text("34")}}), "34");
    EXPECT_EQ(versionWith({{"CFBundleShortVersionString", PropertyList{1.5}},
                           {"CFBundleVersion", text("34")}}),
              "34");
    EXPECT_EQ(versionWith({{"CFBundleVersion", PropertyList{std::int64_t{34}}}}), "—");
}

TEST_F(LoadApp, ShowsTheDisplayNameWithoutItsExtension) {
    addEditor();
    files.setDisplayName(editor, "Éditeur.app");
    EXPECT_EQ(loaded().name, "Éditeur");
    files.setDisplayName(editor, "Éditeur");
    EXPECT_EQ(loaded().name, "Éditeur");
}

TEST_F(LoadApp, CountsNoContainerWithoutBeingAsked) {
    addEditor();
    files.addFile(library("Containers/com.acme.Editor/data"), 1000, daysAgo(1));
    EXPECT_THAT(loaded().parts, SizeIs(1));
    EXPECT_EQ(loaded().lastUsed, std::nullopt);
    EXPECT_THAT(loaded(true).parts, SizeIs(2));
    EXPECT_EQ(loaded(true).parts.back().bytes, 1000);
    EXPECT_EQ(loaded(true).lastUsed, daysAgo(1));
}

TEST_F(LoadApp, MarksAFolderThatCannotBeRead) {
    addEditor();
    files.addFile(library("Containers/com.acme.Editor/data"), 1000);
    files.addFile(library("Preferences/com.acme.Editor.plist"), 10);
    files.refuseReading(library("Containers/com.acme.Editor"));
    files.refuseReading(library("Preferences/com.acme.Editor.plist"));
    const auto parts = loaded(true).parts;
    ASSERT_THAT(parts, SizeIs(3));
    EXPECT_EQ(parts[1].kind, "Preferences");
    EXPECT_FALSE(parts[1].isUnreadable);
    EXPECT_EQ(parts[2].kind, "Containers");
    EXPECT_TRUE(parts[2].isUnreadable);
    EXPECT_EQ(parts[2].bytes, 0);
}

TEST_F(LoadApp, TakesTheLaterOfMetadataAndFiles) {
    addEditor();
    system.metadata.items[editor] = {.lastUsed = daysAgo(365)};
    EXPECT_EQ(loaded().lastUsed, daysAgo(365));
    files.addFile(library("Preferences/com.acme.Editor.plist"), 10, ago(1h));
    EXPECT_EQ(loaded().lastUsed, ago(1h));
    system.metadata.items[editor] = {.lastUsed = ago(1min)};
    EXPECT_EQ(loaded().lastUsed, ago(1min));
}

TEST_F(LoadApp, HoldsADateToComeBackToNow) {
    addEditor();
    files.addFile(library("Preferences/com.acme.Editor.plist"), 10, daysAgo(-30));
    EXPECT_EQ(loaded().lastUsed, system.now);
}

TEST_F(LoadApp, TakesTheDatesOfSomeKindsAlone) {
    addEditor();
    files.addFile(library("Caches/com.acme.Editor/a"), 1, daysAgo(1));
    files.addFile(library("WebKit/com.acme.Editor/a"), 1, daysAgo(1));
    files.addFile(library("HTTPStorages/com.acme.Editor.binarycookies"), 1, daysAgo(1));
    files.addFile(library("LaunchAgents/com.acme.Editor.plist"), 1, daysAgo(1));
    EXPECT_EQ(loaded().lastUsed, std::nullopt);
    files.addFile(library("Saved Application State/com.acme.Editor.savedState/a"), 1, daysAgo(9));
    EXPECT_EQ(loaded().lastUsed, daysAgo(9));
    files.addFile(library("Logs/Editor/a"), 1, daysAgo(8));
    EXPECT_EQ(loaded().lastUsed, daysAgo(8));
    files.addFile(library("Application Support/Editor/a"), 1, daysAgo(7));
    EXPECT_EQ(loaded().lastUsed, daysAgo(7));
}

TEST_F(LoadApp, GivesNothingOnceCancelled) {
    addEditor();
    stop.request_stop();
    EXPECT_EQ(load(editor), std::nullopt);
    EXPECT_FALSE(files.wasAsked("exists /Users/sam/Library/Preferences/com.acme.Editor.plist"));
}

TEST_F(LoadApp, SurvivesABundleThatVanishes) {
    EXPECT_EQ(load("/Applications/Gone.app")->parts.at(0).bytes, 0);
    addEditor();
    files.addFile(library("Caches/com.acme.Editor/a"), 1);
    files.watch([&](std::string_view question, const Path& path) {
        if (question == "attributes" && path == library("Caches/com.acme.Editor")) {
            files.remove(path);
        }
    });
    const auto parts = loaded().parts;
    ASSERT_THAT(parts, SizeIs(2));
    EXPECT_EQ(parts[1].bytes, 0);
    EXPECT_FALSE(parts[1].isUnreadable);
}

TEST_F(LoadApp, AsksTheMetadataStoreForTheLastUse) {
    EXPECT_EQ(spotlightLastUsed(scan(), editor), std::nullopt);
    system.metadata.items[editor] = {.added = daysAgo(1)};
    EXPECT_EQ(spotlightLastUsed(scan(), editor), std::nullopt);
    system.metadata.items[editor] = {.lastUsed = daysAgo(2)};
    EXPECT_EQ(spotlightLastUsed(scan(), editor), daysAgo(2));
}

}  // namespace
}  // namespace morvane::CleanupScanner
