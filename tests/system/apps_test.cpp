// The inventory of applications, and taking one off with all it keeps.

#include <gmock/gmock.h>
#include <unistd.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

using testing::StartsWith;

class Apps : public SystemTest {
protected:
    static inline const std::string library = "/Users/sam/Library/";
    void scanApps() { driver().call("scanApps", {{"force", true}}); }
    Json app(const std::string& name) { return with(driver().get("apps"), name, "name"); }
    std::string failure() { return driver().get("uninstallResult").at("failed"); }
    void uninstall(const std::string& path) { driver().call("uninstall", {{"app", path}}); }
};

TEST_F(Apps, AreLookedForOneFolderDeepAndNotBehindLinks) {
    disk.app("/Applications/One.app", "com.a.one");
    disk.app("/Applications/Utilities/Two.app", "com.a.two");
    disk.app("/Applications/Utilities/More/Three.app", "com.a.three");
    disk.app("/Users/sam/Applications/Four.app", "com.a.four");
    disk.app("/Applications/One.app/Contents/Helpers/Inner.app", "com.a.inner");
    disk.app("/Applications/Pack.bundle/Hidden.app", "com.a.hidden");
    disk.app("/Applications/.Secret.app", "com.a.secret");
    disk.app("/Volumes/Far.app", "com.a.far");
    disk.link("/Applications/Far.app", "/Volumes/Far.app");
    disk.link("/Applications/Linked", "/Volumes");
    disk.app("/Applications/Upper.APP", "com.a.upper");
    EXPECT_EQ(sorted(driver().call("listApplications")),
              Json::array({"/Applications/One.app", "/Applications/Utilities/Two.app",
                           "/Users/sam/Applications/Four.app"}));
    const Json index = driver().call("installedAppIndex");
    EXPECT_EQ(index.at("bundleIDs"), Json::array({"com.a.four", "com.a.one", "com.a.two"}));
    EXPECT_EQ(sorted(index.at("names")), Json::array({"Four", "One", "Two"}));
}

TEST_F(Apps, OfTheSystemAreListedOnlyWithAReceipt) {
    disk.app("/Applications/iMovie.app", "com.apple.iMovie");
    disk.text("/Applications/iMovie.app/Contents/_MASReceipt/receipt", "x");
    disk.app("/Applications/Safari.app", "com.apple.Safari");
    disk.app("/Applications/Bare.app", "");
    disk.text("/Applications/Torn.app/Contents/Info.plist", "not a list");
    scanApps();
    EXPECT_EQ(sorted(all(driver().get("apps"), "name")), Json::array({"Bare", "Torn", "iMovie"}));
    EXPECT_EQ(app("Bare").at("bundleID"), nullptr);
    EXPECT_EQ(app("Bare").at("version"), "—");
    EXPECT_EQ(app("iMovie").at("version"), "1.2");
    EXPECT_EQ(driver().get("appsScannedAt"), "2026-06-15T12:00:00.000Z");
}

TEST_F(Apps, KeepWhatTheirIdentifierNameAndVendorSay) {
    disk.app("/Applications/Super Edit.app", "com.Acme.editor");
    for (const std::string path :
         {"Application Support/com.Acme.editor", "Caches/com.Acme.editor",
          "Saved Application State/com.Acme.editor.savedState", "HTTPStorages/com.Acme.editor",
          "WebKit/com.Acme.editor", "Containers/com.Acme.editor",
          "Application Scripts/com.Acme.editor", "Caches/com.Acme.editor.ShipIt",
          "Application Support/Super Edit", "Logs/Super Edit",
          "Application Support/ACME/SuperEdit2024", "Application Support/ACME/Super Edit 2024",
          "Application Support/ACME/Other", "Caches/Super"}) {
        disk.file(library + path + "/data", 4096);
    }
    for (const std::string path :
         {"Preferences/com.Acme.editor.plist", "HTTPStorages/com.Acme.editor.binarycookies",
          "LaunchAgents/com.Acme.editor.helper.plist", "LaunchAgents/com.Acme.other.plist"}) {
        disk.file(library + path, 4096);
    }
    scanApps();
    Json kinds = Json::array();
    const Json parts = app("Super Edit").at("parts");
    for (const Json& part : parts) {
        kinds.push_back(part.at("kind").get<std::string>() + ": " +
                        part.at("url").get<std::string>());
    }
    const auto row = [&](const std::string& kind, const std::string& path) {
        return kind + ": " + library + path;
    };
    EXPECT_EQ(kinds,
              Json::array({"Application: /Applications/Super Edit.app",
                           row("Preferences", "Preferences/com.Acme.editor.plist"),
                           row("Application Support", "Application Support/com.Acme.editor"),
                           row("Caches", "Caches/com.Acme.editor"),
                           row("Saved State", "Saved Application State/com.Acme.editor.savedState"),
                           row("Web Data", "HTTPStorages/com.Acme.editor"),
                           row("Cookies", "HTTPStorages/com.Acme.editor.binarycookies"),
                           row("Web Data", "WebKit/com.Acme.editor"),
                           row("Containers", "Containers/com.Acme.editor"),
                           row("Application Scripts", "Application Scripts/com.Acme.editor"),
                           row("Caches", "Caches/com.Acme.editor.ShipIt"),
                           row("Launch Agents", "LaunchAgents/com.Acme.editor.helper.plist"),
                           row("Application Support", "Application Support/Super Edit"),
                           row("Logs", "Logs/Super Edit"),
                           row("Application Support", "Application Support/ACME/SuperEdit2024")}));
    driver().host({{"fullDiskAccess", "denied"}});
    driver().call("refreshPermissions");
    scanApps();
    EXPECT_EQ(app("Super Edit").at("parts").size(), 13U);
}

TEST_F(Apps, PartsThatCannotBeListedAreMarked) {
    disk.app("/Applications/Boxed.app", "com.a.boxed");
    disk.file(library + "Containers/com.a.boxed/data", 4096);
    disk.host["unreadable"] = {library + "Containers/com.a.boxed"};
    scanApps();
    const Json part = app("Boxed").at("parts").at(1);
    EXPECT_EQ(part.at("isUnreadable"), true);
    EXPECT_EQ(part.at("bytes"), 0);
}

TEST_F(Apps, WereLastUsedWhenTheLaterSignSays) {
    disk.app("/Applications/A.app", "com.a.tool");
    disk.text(library + "Preferences/com.a.tool.plist", "x", 3);
    disk.file(library + "Caches/com.a.tool/data", 4096, 1);
    disk.app("/Applications/B.app", "com.b.tool");
    disk.text(library + "Preferences/com.b.tool.plist", "x", -5);
    disk.app("/Applications/C.app", "com.c.tool");
    disk.app("/Applications/D.app", "com.d.tool");
    disk.host["metadata"] = {{"/Applications/A.app", {{"lastUsed", "2025-06-15T12:00:00Z"}}},
                             {"/Applications/D.app", {{"lastUsed", "2026-06-01T00:00:00+01:00"}}}};
    scanApps();
    EXPECT_EQ(app("A").at("lastUsed"), "2026-06-12T12:00:00.000Z");
    EXPECT_EQ(app("B").at("lastUsed"), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(app("C").at("lastUsed"), nullptr);
    EXPECT_EQ(app("D").at("lastUsed"), "2026-05-31T23:00:00.000Z");
}

TEST_F(Apps, AreShownByQueryAndOrder) {
    disk.app("/Applications/beta.app", "com.a.beta", 300'000);
    disk.app("/Applications/Alpha.app", "com.a.alpha", 200'000);
    disk.app("/Applications/Gamma 10.app", "com.a.gamma", 400'000);
    disk.app("/Applications/Gamma 9.app", "com.a.nine", 100'000);
    disk.host["metadata"] = {{"/Applications/beta.app", {{"lastUsed", "2026-06-01T00:00:00Z"}}},
                             {"/Applications/Alpha.app", {{"lastUsed", "2026-01-01T00:00:00Z"}}},
                             {"/Applications/Gamma 9.app", {{"lastUsed", "2026-06-14T00:00:00Z"}}}};
    scanApps();
    const auto shown = [&] { return all(driver().get("visibleApps"), "name"); };
    EXPECT_EQ(shown(), Json::array({"Gamma 10", "beta", "Alpha", "Gamma 9"}));
    driver().set({{"appSort", "name"}});
    EXPECT_EQ(shown(), Json::array({"Alpha", "beta", "Gamma 9", "Gamma 10"}));
    driver().set({{"appSort", "leastUsed"}});
    EXPECT_EQ(shown(), Json::array({"Gamma 10", "Alpha", "beta", "Gamma 9"}));
    driver().set({{"appQuery", "  MMA "}});
    EXPECT_EQ(shown(), Json::array({"Gamma 10", "Gamma 9"}));
}

TEST_F(Apps, AreNotScannedAgainWithinFiveMinutesUnlessForced) {
    scanApps();
    disk.app("/Applications/New.app", "com.a.new");
    driver().advance(299.9);
    driver().call("scanApps", {{"force", false}});
    EXPECT_EQ(driver().get("apps"), Json::array());
    driver().advance(0.1);
    driver().call("scanApps", {{"force", false}});
    EXPECT_EQ(all(driver().get("apps"), "name"), Json::array({"New"}));
}

TEST_F(Apps, GoWholeWithTheirAgentsUnloadedFirst) {
    disk.app("/Applications/A.app", "com.a.tool");
    disk.file(library + "Caches/com.a.tool/data", 4096);
    disk.text(library + "LaunchAgents/com.a.tool.plist", "x");
    disk.tool("/bin/launchctl",
              R"([ -e "$MORVANE_DISK/root$3" ] && echo "$*" >> "$MORVANE_DISK/unloaded")");
    disk.app("/Applications/B.app", "com.b.tool");
    scanApps();
    driver().set({{"selectedAppID", "/Applications/A.app"}, {"excludedAppParts", {"/other"}}});
    uninstall("/Applications/A.app");
    EXPECT_EQ(driver().get("uninstallResult").at("removed").at("wholeApp"), true);
    EXPECT_EQ(all(driver().get("apps"), "name"), Json::array({"B"}));
    EXPECT_EQ(driver().get("selectedAppID"), "/Applications/B.app");
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "Uninstalled A · 115 KB");
    EXPECT_EQ(driver().get("history").at(0).at("trashed").size(), 3U);
    EXPECT_EQ(driver().get("isUninstalling"), false);
    EXPECT_EQ(driver().get("excludedAppParts"), Json::array({"/other"}));
    EXPECT_TRUE(std::filesystem::exists(disk.folder() / "unloaded"));
}

TEST_F(Apps, LeftoversAloneGoWhileTheAppRuns) {
    disk.app("/Applications/A.app", "com.a.tool");
    disk.file(library + "Caches/com.a.tool/data", 4096);
    disk.host["runningApplications"] = {
        {{"bundleIdentifier", "com.a.tool"}, {"refusesToQuit", true}}};
    scanApps();
    driver().set({{"excludedAppParts", {"/Applications/A.app"}}});
    uninstall("/Applications/A.app");
    EXPECT_EQ(driver().get("uninstallResult"),
              Json::parse(R"({"removed":{"name":"A","mb":0.004096,"wholeApp":false}})"));
    EXPECT_EQ(driver().effects("terminate"), Json::array());
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "A leftovers · 4 KB");
    EXPECT_EQ(app("A").at("parts").size(), 1U);
    EXPECT_EQ(driver().get("excludedAppParts"), Json::array());
}

TEST_F(Apps, WithNothingTickedNothingHappens) {
    disk.app("/Applications/A.app", "com.a.tool");
    scanApps();
    driver().set({{"excludedAppParts", {"/Applications/A.app"}}});
    uninstall("/Applications/A.app");
    EXPECT_EQ(driver().get("uninstallResult"), nullptr);
    EXPECT_EQ(driver().get("excludedAppParts"), Json::array({"/Applications/A.app"}));
}

TEST_F(Apps, AnUntickedAgentStaysLoaded) {
    disk.app("/Applications/A.app", "com.a.tool");
    disk.text(library + "LaunchAgents/com.a.tool.plist", "x");
    disk.tool("/bin/launchctl", "exit 0");
    scanApps();
    driver().set({{"excludedAppParts", {library + "LaunchAgents/com.a.tool.plist"}}});
    uninstall("/Applications/A.app");
    EXPECT_EQ(driver().effects("run"), Json::array());
    EXPECT_TRUE(disk.has(library + "LaunchAgents/com.a.tool.plist"));
    EXPECT_EQ(driver().get("apps"), Json::array());
}

TEST_F(Apps, ThatRefuseToQuitStayUntouched) {
    disk.app("/Applications/A.app", "");
    disk.file(library + "Logs/Stubborn/data", 4096);
    disk.host["displayNames"] = {{"/Applications/A.app", "Stubborn"}};
    disk.host["runningApplications"] = {
        {{"bundlePath", "/Applications/../Applications/A.app"}, {"refusesToQuit", true}}};
    scanApps();
    uninstall("/Applications/A.app");
    EXPECT_EQ(driver().get("uninstallResult"),
              Json({{"failed", "Stubborn didn’t quit. Quit it yourself, then try again."}}));
    EXPECT_TRUE(disk.has("/Applications/A.app"));
    EXPECT_TRUE(disk.has(library + "Logs/Stubborn"));
    EXPECT_EQ(driver().get("history"), Json::array());
    // It is asked once, however long it is waited for.
    EXPECT_EQ(driver().effects("terminate").size(), 1U);
}

TEST_F(Apps, ThatTheHostNoLongerNamesHaveEnded) {
    disk.app("/Applications/A.app", "com.a.tool");
    disk.host["runningApplications"] = {
        {{"bundleIdentifier", "com.a.tool"}, {"refusesToQuit", true}}};
    scanApps();
    driver().begin("uninstall", {{"app", "/Applications/A.app"}});
    driver().advance(1);
    EXPECT_EQ(driver().get("isUninstalling"), true);
    driver().host({{"runningApplications", Json::array()}});
    driver().waitForAll();
    EXPECT_FALSE(disk.has("/Applications/A.app"));
}

TEST_F(Apps, PartsThatStayAreToldInWords) {
    disk.app("/Applications/A.app", "com.a.tool");
    disk.file(library + "Caches/com.a.tool/data", 4096);
    disk.file(library + "WebKit/com.a.tool/data", 8192);
    disk.host["immovable"] = {"/Applications/A.app"};
    scanApps();
    uninstall("/Applications/A.app");
    EXPECT_EQ(driver().get("uninstallResult"),
              Json({{"failed", "Moved 2 of 3 items. The rest couldn’t be removed."}}));
    EXPECT_EQ(app("A").at("parts").size(), 1U);
    uninstall("/Applications/A.app");
    EXPECT_THAT(failure(), StartsWith("Couldn’t move A to the Trash. "));
    driver().set({{"alwaysUseTrash", false}});
    driver().host({{"immovable", {"/Applications/A.app/Contents/MacOS"}}});
    uninstall("/Applications/A.app");
    EXPECT_THAT(failure(), StartsWith("Couldn’t delete A. "));
    EXPECT_EQ(all(driver().get("apps"), "name"), Json::array({"A"}));
}

TEST_F(Apps, APartThatVanishedCountsAsGone) {
    disk.app("/Applications/A.app", "com.a.tool");
    disk.file(library + "Caches/com.a.tool/data", 4096);
    scanApps();
    disk.remove(library + "Caches/com.a.tool");
    uninstall("/Applications/A.app");
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "Uninstalled A · 111 KB");
    EXPECT_EQ(driver().get("history").at(0).at("trashed"),
              Json({{"/Applications/A.app", "/Users/sam/.Trash/A.app"}}));
}

}  // namespace
}  // namespace morvane::test
