// Caches, browsers and logs; installers and mail; what removed apps left; backups.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Crumbs : public SystemTest {
protected:
    static inline const std::string caches = "/Users/sam/Library/Caches/";
    Json item(const std::string& id) { return with(driver().get("sweepItems"), id); }
};

TEST_F(Crumbs, CachesLeaveOutWhatIsOpenProtectedOrOurs) {
    disk.host["bundle"] = {{"identifier", "org.example.tidy"}};
    disk.host["runningApplications"] = {{{"bundleIdentifier", "com.acme.Editor"}}, Json::object()};
    for (const std::string name :
         {"com.acme.Editor", "com.acme.Editor.ShipIt", "com.acme.Other", "com.acme.Other.ShipIt",
          "com.apple.dock", "Homebrew", "org.example.tidy", "org.example.tidying", ".hidden",
          "homebrew"}) {
        disk.file(caches + name + "/data", 4096);
    }
    disk.makeFolder(caches + "empty");
    scan();
    EXPECT_EQ(sorted(pathsOf(item("caches"))),
              Json::array({caches + "com.acme.Other", caches + "com.acme.Other.ShipIt",
                           caches + "homebrew"}));
    EXPECT_EQ(item("caches").at("location"), "~/Library/Caches · 3 apps");
    EXPECT_EQ(item("caches").at("name"), "App caches");
    EXPECT_EQ(item("caches").at("safety"), "safe");
    EXPECT_EQ(item("caches").at("lastUsed"), "");
    EXPECT_EQ(item("caches").at("revealURL"), "/Users/sam/Library/Caches");
    EXPECT_EQ(item("caches").at("explanation"),
              "Temporary files apps keep so things load faster. Apps quietly rebuild whatever they "
              "need, so clearing these is harmless. The first launch afterwards may be a touch "
              "slower. Caches of apps that are open right now are left alone.");
}

TEST_F(Crumbs, ARunningAppIsNoticedAtTheNextScan) {
    disk.file(caches + "com.acme.Editor/data", 4096);
    scan();
    EXPECT_EQ(item("caches").at("location"), "~/Library/Caches · 1 app");
    driver().host({{"runningApplications", {{{"bundleIdentifier", "com.acme.Editor"}}}}});
    scan();
    EXPECT_EQ(item("caches"), nullptr);
}

TEST_F(Crumbs, BrowsersThatAreOpenAreLeftAlone) {
    disk.file(caches + "com.apple.Safari/data", 4096);
    disk.file(caches + "Google/Chrome/data", 4096);
    disk.file(caches + "Firefox/data", 4096);
    disk.file(caches + "Mozilla/Firefox/data", 8192);
    disk.host["runningApplications"] = {{{"bundleIdentifier", "com.google.Chrome"}}};
    scan();
    EXPECT_EQ(
        pathsOf(item("browsers")),
        Json::array({caches + "com.apple.Safari", caches + "Firefox", caches + "Mozilla/Firefox"}));
    EXPECT_EQ(item("browsers").at("bytes"), 16384);
    EXPECT_EQ(item("browsers").at("location"),
              "~/Library/Caches/com.apple.Safari · ~/Library/Caches/Firefox · "
              "~/Library/Caches/Mozilla/Firefox");
    driver().host({{"runningApplications",
                    {{{"bundleIdentifier", "com.google.Chrome"}},
                     {{"bundleIdentifier", "com.apple.Safari"}},
                     {{"bundleIdentifier", "org.mozilla.firefox"}}}}});
    scan();
    EXPECT_EQ(item("browsers"), nullptr);
}

TEST_F(Crumbs, LogsGoOneByOneWhenOlderThanThirtyDays) {
    const std::string logs = "/Users/sam/Library/Logs/";
    disk.file(logs + "app/old.log", 4096, 30.001);
    disk.file(logs + "app/edge.log", 4096, 30);
    disk.file(logs + "app/new.log", 4096, 1);
    disk.link(logs + "app/link.log", "old.log");
    scan();
    EXPECT_EQ(pathsOf(item("logs")), Json::array({logs + "app/old.log"}));
    EXPECT_EQ(item("logs").at("location"), "~/Library/Logs · 1 file");
    driver().call("sweep", {{"items", {"logs"}}});
    EXPECT_EQ(disk.names(logs + "app"),
              (std::vector<std::string>{"edge.log", "link.log", "new.log"}));
}

TEST_F(Crumbs, LogsThatAreAllEmptyGiveNoItem) {
    disk.text("/Users/sam/Library/Logs/empty.log", "");
    scan();
    EXPECT_EQ(item("logs"), nullptr);
}

TEST_F(Crumbs, SizesCountHiddenFilesAndPackagesButNoLinks) {
    disk.file("/Users/sam/Huge/data", 40960);
    disk.file(caches + "com.a.One/.hidden/data", 4096);
    disk.file(caches + "com.a.One/A.app/Contents/data", 4096);
    disk.link(caches + "com.a.One/link", "/Users/sam/Huge");
    disk.file(caches + "com.a.One/twice", 4096);
    disk.hardLink(caches + "com.a.One/again", caches + "com.a.One/twice");
    scan();
    EXPECT_EQ(item("caches").at("bytes"), 16384);
}

TEST_F(Crumbs, ASparseFileCountsTheRoomItTakes) {
    disk.file(caches + "com.a.One/data", 4096);
    std::filesystem::resize_file(disk.real(caches + "com.a.One/data"), 4'000'000'000);
    scan();
    EXPECT_EQ(item("caches").at("bytes"), 4096);
}

TEST_F(Crumbs, ALinkInCachesIsWhatGoesAndNotWhatItPointsAt) {
    disk.file("/Users/sam/Precious/data", 40960);
    disk.file(caches + "com.a.One/data", 4096);
    disk.link(caches + "com.a.Linked", "/Users/sam/Precious");
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_TRUE(disk.has("/Users/sam/Precious/data"));
}

TEST_F(Crumbs, InstallersAreSplitByWhetherTheirAppIsThere) {
    disk.app("/Applications/Google Chrome.app", "com.google.Chrome");
    disk.app("/Applications/zoom.us.app", "us.zoom.xos");
    disk.app("/Applications/Go.app", "dev.go");
    disk.app("/Applications/Sublime Text.app", "com.sublimetext.4");
    for (const std::string name :
         {"googlechrome-stable.dmg", "zoom.pkg", "chrome.dmg", "go.pkg", "7zip.dmg", "sub.dmg",
          "INSTALLER.DMG", "thing.mpkg", "disk.iso", "Sublime Text 4200.dmg", "sublime"}) {
        disk.file("/Users/sam/Downloads/" + name, 4096);
    }
    disk.file("/Users/sam/Downloads/Zoom zero.dmg", 0);
    disk.file("/Users/sam/Downloads/sub/zoom.dmg", 4096);
    scan();
    const std::string downloads = "/Users/sam/Downloads/";
    EXPECT_EQ(sorted(pathsOf(item("installers"))),
              Json::array({downloads + "Sublime Text 4200.dmg",
                           downloads + "googlechrome-stable.dmg", downloads + "zoom.pkg"}));
    EXPECT_EQ(sorted(pathsOf(item("otherInstallers"))),
              Json::array({downloads + "7zip.dmg", downloads + "INSTALLER.DMG",
                           downloads + "Zoom zero.dmg", downloads + "chrome.dmg",
                           downloads + "go.pkg", downloads + "sub.dmg", downloads + "thing.mpkg"}));
    EXPECT_EQ(item("installers").at("safety"), "safe");
    EXPECT_EQ(item("otherInstallers").at("safety"), "review");
    EXPECT_EQ(item("installers").at("location"), "~/Downloads · 3 files");
}

TEST_F(Crumbs, MailAttachmentsAreForReview) {
    const std::string mail =
        "/Users/sam/Library/Containers/com.apple.mail/Data/Library/Mail Downloads";
    disk.file(mail + "/A/letter.pdf", 4096);
    scan();
    EXPECT_EQ(pathsOf(item("mail")), Json::array({mail + "/A"}));
    EXPECT_EQ(item("mail").at("safety"), "review");
    EXPECT_EQ(item("mail").at("location"),
              "~/Library/Containers/com.apple.mail/Data/Library/Mail Downloads");
}

class Leftovers : public SystemTest {
protected:
    static inline const std::string library = "/Users/sam/Library/";
    Json ids() { return sorted(all(driver().get("leftoverItems"), "id")); }
};

TEST_F(Leftovers, OfOneIdentifierAreOneItem) {
    disk.file(library + "Application Support/com.acme.Editor/data", 600'000);
    disk.file(library + "Caches/com.acme.Editor/data", 500'000, 10);
    scan();
    const Json item = driver().get("leftoverItems").at(0);
    EXPECT_EQ(item.at("id"), "leftover:com.acme.Editor");
    EXPECT_EQ(item.at("name"), "Editor (app was removed)");
    EXPECT_EQ(pathsOf(item), Json::array({library + "Application Support/com.acme.Editor",
                                          library + "Caches/com.acme.Editor"}));
    EXPECT_EQ(item.at("location"), "~/Library/Application Support/com.acme.Editor · +1 more");
    EXPECT_EQ(item.at("explanation"),
              "Settings and data left behind by Editor (com.acme.Editor), which is no longer "
              "installed. Last changed last week. If you might reinstall it someday, you may want "
              "to keep these.");
    EXPECT_EQ(item.at("safety"), "review");
}

TEST_F(Leftovers, NeedAMegabyteInAll) {
    disk.file(library + "Caches/com.acme.Below/data", 999'424);
    disk.file(library + "Caches/com.bolt.Above/data", 1'000'001);
    scan();
    EXPECT_EQ(ids(), Json::array({"leftover:com.bolt.Above"}));
}

TEST_F(Leftovers, ALiveAppsVendorProtectsItsNames) {
    disk.app("/Applications/Other.app", "com.acme.Other");
    disk.file(library + "Caches/com.ACME.Editor/data", 2'000'000);
    disk.file(library + "Caches/com.bolt.Editor/data", 2'000'000);
    scan();
    EXPECT_EQ(ids(), Json::array({"leftover:com.bolt.Editor"}));
}

TEST_F(Leftovers, NamesThatAreNoIdentifiersOrApplesAreNeverReported) {
    for (const std::string name :
         {"Adobe", "My Project", "com.acme", "com.apple.thing", "COM.APPLE.thing", "com..acme.x",
          "com.acme.my app", "com.operasoftware.Opera"}) {
        disk.file(library + "Application Support/" + name + "/data", 2'000'000);
    }
    disk.file(library + "Application Support/com.acme.Editor.plist/data", 2'000'000);
    disk.file(library + "Preferences/com.bolt.Editor.plist", 2'000'000);
    disk.file(library + "HTTPStorages/com.cave.Web.binarycookies", 2'000'000);
    disk.file(library + "Saved Application State/com.dune.Keep.savedState/data", 2'000'000);
    disk.file(library + "Caches/com.east.Ship.ShipIt/data", 2'000'000);
    scan();
    EXPECT_EQ(ids(), Json::array({"leftover:com.bolt.Editor", "leftover:com.cave.Web",
                                  "leftover:com.dune.Keep", "leftover:com.east.Ship"}));
}

TEST_F(Leftovers, AnAppThatTheSystemStillKnowsIsNoOrphan) {
    disk.file(library + "Caches/com.acme.Far/data", 2'000'000);
    disk.file(library + "Caches/com.bolt.Gone/data", 2'000'000);
    disk.makeFolder("/Volumes/Other/Far.app");
    disk.host["registeredApplications"] = {{"com.acme.Far", "/Volumes/Other/Far.app"},
                                           {"com.bolt.Gone", "/Volumes/Other/Gone.app"}};
    scan();
    EXPECT_EQ(ids(), Json::array({"leftover:com.bolt.Gone"}));
}

TEST_F(Leftovers, SpellingsMakeGroupsOfTheirOwn) {
    disk.file(library + "Caches/com.acme.Editor/data", 2'000'000);
    disk.file(library + "Logs/Com.Acme.Editor/data", 2'000'000, 1);
    scan();
    EXPECT_EQ(ids(), Json::array({"leftover:Com.Acme.Editor", "leftover:com.acme.Editor"}));
}

TEST_F(Leftovers, ContainersNeedTheAccess) {
    disk.file(library + "Containers/com.acme.Boxed/data", 2'000'000);
    scan();
    EXPECT_EQ(ids(), Json::array({"leftover:com.acme.Boxed"}));
    driver().host({{"fullDiskAccess", "denied"}});
    driver().call("refreshPermissions");
    scan();
    EXPECT_EQ(ids(), Json::array());
}

class Backups : public SystemTest {
protected:
    static inline const std::string folder =
        "/Users/sam/Library/Application Support/MobileSync/Backup/";
};

TEST_F(Backups, AreNamedByWhatTheyCarryLargestFirst) {
    disk.file(folder + "aaa/data", 8192);
    disk.propertyList(folder + "aaa/Info.plist",
                      "<dict><key>Device Name</key><string>My iPhone</string>"
                      "<key>Display Name</key><string>Not this</string>"
                      "<key>Product Name</key><string>iPhone 14</string>"
                      "<key>Last Backup Date</key><date>2026-05-23T08:00:00Z</date></dict>");
    disk.file(folder + "bbb/data", 40960);
    disk.propertyList(folder + "bbb/Info.plist",
                      "<dict><key>Display Name</key><string>Shown</string>"
                      "<key>Last Backup Date</key><date>2026-06-07T08:00:00Z</date></dict>");
    disk.file(folder + "ccc/data", 20480);
    disk.file(folder + "stray", 4096);
    scan();
    const Json items = driver().get("backupItems");
    EXPECT_EQ(all(items, "id"),
              Json::array({"backup:bbb", "backup:ccc", "backup:aaa", "backup:stray"}));
    EXPECT_EQ(all(items, "name"), Json::array({"Shown, backed up June 7, 2026", "An iPhone",
                                               "My iPhone, backed up May 23, 2026", "An iPhone"}));
    const std::string rest =
        " If that device now backs up to iCloud, or you no longer have it, "
        "this is likely safe to remove.";
    EXPECT_EQ(all(items, "explanation"),
              Json::array({"A full copy of a device, from last week." + rest,
                           "A full copy of a device." + rest,
                           "A full copy of an iPhone 14, from 3 weeks ago." + rest,
                           "A full copy of a device." + rest}));
}

}  // namespace
}  // namespace morvane::test
