#include "scanners/app_companions.h"

#include "scanners/known_app_paths.h"
#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Companions : public ScannerTest {
protected:
    void add(std::string_view below) { files.addFile(library(below) / "data", 10); }
    // As "kind: path under Library", in order.
    [[nodiscard]] Texts found(const std::optional<std::string>& id, const std::string& name,
                              bool includeContainers = true) const {
        Texts texts;
        for (const Companion& each :
             candidatePaths(scan(), id, name, includeContainers, libraryNames(scan()))) {
            texts.push_back(each.kind + ": " +
                            each.url.lexically_relative(system.platform.library()).native());
        }
        return texts;
    }
};

TEST_F(Companions, GoByTheIdentifierInOrder) {
    for (const char* folder :
         {"Caches/com.acme.Editor.ShipIt", "Application Scripts/com.acme.Editor",
          "Containers/com.acme.Editor", "Cookies/com.acme.Editor.binarycookies",
          "WebKit/com.acme.Editor", "HTTPStorages/com.acme.Editor.binarycookies",
          "HTTPStorages/com.acme.Editor", "Saved Application State/com.acme.Editor.savedState",
          "Caches/com.acme.Editor", "Application Support/com.acme.Editor",
          "Preferences/com.acme.Editor.plist", "Group Containers/com.acme.Editor",
          "Logs/com.acme.Editor", "Caches/com.acme.Editor2"}) {
        add(folder);
    }
    EXPECT_THAT(found("com.acme.Editor", "Ed"),
                ElementsAre("Preferences: Preferences/com.acme.Editor.plist",
                            "Application Support: Application Support/com.acme.Editor",
                            "Caches: Caches/com.acme.Editor",
                            "Saved State: Saved Application State/com.acme.Editor.savedState",
                            "Web Data: HTTPStorages/com.acme.Editor",
                            "Cookies: HTTPStorages/com.acme.Editor.binarycookies",
                            "Web Data: WebKit/com.acme.Editor",
                            "Cookies: Cookies/com.acme.Editor.binarycookies",
                            "Containers: Containers/com.acme.Editor",
                            "Application Scripts: Application Scripts/com.acme.Editor",
                            "Caches: Caches/com.acme.Editor.ShipIt"));
    EXPECT_THAT(found("com.acme.Editor", "Ed", false), SizeIs(9));
    EXPECT_THAT(found(std::nullopt, "Ed"), IsEmpty());
    EXPECT_THAT(found("", "Ed"), IsEmpty());
}

TEST_F(Companions, TakeLaunchAgentsThatBeginWithTheIdentifier) {
    for (const char* name :
         {"com.acme.Editor.plist", "com.acme.Editor.helper.plist", "com.acme.EditorPro.plist",
          "com.acme.Other.plist", "com.acme.Editor.txt", "my.com.acme.Editor.plist"}) {
        files.addFile(library("LaunchAgents") / name, 10);
    }
    EXPECT_THAT(found("com.acme.Editor", "Ed"),
                ElementsAre("Launch Agents: LaunchAgents/com.acme.Editor.plist",
                            "Launch Agents: LaunchAgents/com.acme.Editor.helper.plist",
                            "Launch Agents: LaunchAgents/com.acme.EditorPro.plist"));
    files.refuseReading(library("LaunchAgents"));
    EXPECT_THAT(found("com.acme.Editor", "Ed"), IsEmpty());
}

TEST_F(Companions, GoByANameOfThreeCharacters) {
    for (const char* name : {"Zed", "Go", "Éd", "zed"}) {
        add(std::string("Logs/") + name);
        add(std::string("Caches/") + name);
        add(std::string("Application Support/") + name);
    }
    EXPECT_THAT(found("com.acme.Zed", "Zed"),
                ElementsAre("Application Support: Application Support/Zed", "Caches: Caches/Zed",
                            "Logs: Logs/Zed"));
    EXPECT_THAT(found(std::nullopt, "Zed"), SizeIs(3));
    EXPECT_THAT(found("com.acme.Go", "Go"), IsEmpty());
    EXPECT_THAT(found(std::nullopt, "Éd"), IsEmpty());
}

TEST_F(Companions, LieInTheVendorsFolder) {
    add("Application Support/Acme/SuperEdit2024");
    add("Application Support/Acme/SUPEREDIT");
    add("Application Support/Acme/Super Edit 2024");
    add("Application Support/Acme/Other");
    add("Caches/acme/superedit");
    add("Logs/Acme Inc/SuperEdit");
    EXPECT_THAT(found("com.acme.editor", "Super Edit"),
                ElementsAre("Application Support: Application Support/Acme/SuperEdit2024",
                            "Application Support: Application Support/Acme/SUPEREDIT",
                            "Caches: Caches/acme/superedit"));
    EXPECT_THAT(found("com..acme..editor", "Super Edit"), SizeIs(3));
    EXPECT_THAT(found("com.acme", "Super Edit"), IsEmpty());
    EXPECT_THAT(found(std::nullopt, "Super Edit"), IsEmpty());
    EXPECT_THAT(found("com.other.editor", "Super Edit"), IsEmpty());
}

TEST_F(Companions, AreTakenFromTheFirstFolderOfTheVendorAlone) {
    add("Caches/ACME/Nothing");
    add("Caches/Acme/SuperEdit");
    EXPECT_THAT(found("com.acme.editor", "Super Edit"), IsEmpty());
}

TEST_F(Companions, OfAThreeLetterNameAreNotLookedForAtTheVendors) {
    add("Application Support/Acme/Zed");
    add("Application Support/Acme/Zedd");
    EXPECT_THAT(found("com.acme.Zed", "Zed"), IsEmpty());
    EXPECT_THAT(found("com.acme.Zed", "Z e d"), IsEmpty());
    EXPECT_THAT(found("com.acme.Zed", "Zedd"), SizeIs(1));
}

TEST_F(Companions, ComeOnceUnderTheFirstKind) {
    add("Application Support/com.acme.Editor");
    add("Application Support/Acme/Acme");
    add("Application Support/Spotify");
    EXPECT_THAT(found("com.acme.Editor", "com.acme.Editor"),
                ElementsAre("Application Support: Application Support/com.acme.Editor"));
    EXPECT_THAT(found("com.spotify.client", "Spotify"),
                ElementsAre("Application Support: Application Support/Spotify"));
}

TEST_F(Companions, GoByOtherNamesWhereTheseAreKnown) {
    add("Application Support/Code");
    add("Logs/zoom.us");
    add("Application Support/zoom.us");
    add("Caches/JetBrains/Toolbox");
    EXPECT_THAT(found("com.microsoft.VSCode", "VS"),
                ElementsAre("Application Support: Application Support/Code"));
    EXPECT_THAT(
        found("us.zoom.xos", "Z"),
        ElementsAre("Application Support: Application Support/zoom.us", "Logs: Logs/zoom.us"));
    EXPECT_THAT(found("com.jetbrains.toolbox", "J"),
                ElementsAre("Caches: Caches/JetBrains/Toolbox"));
    EXPECT_THAT(found("com.microsoft.vscode", "VS"), IsEmpty());
}

// An application says itself what its identifier and its name are.
TEST_F(Companions, AreNeverLookedForOutsideTheirFolders) {
    add("Application Support/Editor");
    files.addFile(home("Documents/thesis.txt"), 10);
    files.addFile("/plist", 10);
    for (const char* hostile : {"..", ".", "../../Documents", "../Application Support", "a/../..",
                                "/", "Editor/..", "Editor/.", "./Editor", "com.acme.x/../../.."}) {
        EXPECT_THAT(found(hostile, "Ed"), IsEmpty()) << hostile;
        EXPECT_THAT(found(std::nullopt, hostile), IsEmpty()) << hostile;
        EXPECT_THAT(found(hostile, hostile), IsEmpty()) << hostile;
    }
}

TEST_F(Companions, TakeNamesThatAreNotText) {
    add("Caches/Bad\xff\nname");
    EXPECT_THAT(found(std::nullopt, "Bad\xff\nname"), ElementsAre("Caches: Caches/Bad\xff\nname"));
}

TEST(KnownAppPaths, StandTogether) {
    const auto rows = knownAppPaths("com.jetbrains.toolbox");
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].path, "Application Support/JetBrains/Toolbox");
    EXPECT_EQ(rows[1].path, "Caches/JetBrains/Toolbox");
    EXPECT_EQ(rows[2].path, "Logs/JetBrains/Toolbox");
    EXPECT_EQ(rows[2].kind, "Logs");
    EXPECT_TRUE(knownAppPaths("com.acme.Editor").empty());
    EXPECT_TRUE(knownAppPaths("").empty());
}

TEST(KnownAppPaths, AreThoseOfTwentyFourApps) {
    std::size_t count = 0;
    for (const char* id : {"com.microsoft.VSCode",
                           "com.microsoft.VSCodeInsiders",
                           "com.vscodium",
                           "com.google.Chrome",
                           "com.google.Chrome.beta",
                           "com.google.Chrome.canary",
                           "com.brave.Browser",
                           "com.brave.Browser.beta",
                           "com.googlecode.iterm2",
                           "us.zoom.xos",
                           "com.unity3d.unityhub",
                           "com.docker.docker",
                           "com.jetbrains.toolbox",
                           "com.github.GitHubClient",
                           "com.tinyspeck.slackmacgap",
                           "com.hnc.Discord",
                           "com.spotify.client",
                           "md.obsidian",
                           "com.postmanlabs.mac",
                           "com.figma.Desktop",
                           "com.sublimetext.4",
                           "com.sublimetext.3",
                           "com.sublimemerge",
                           "com.valvesoftware.steam"}) {
        EXPECT_FALSE(knownAppPaths(id).empty()) << id;
        count += knownAppPaths(id).size();
    }
    EXPECT_EQ(count, 33U);
}

}  // namespace
}  // namespace morvane::CleanupScanner
