#include "scanners/inventory.h"

#include "scanners/plists.h"
#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Inventory : public ScannerTest {
protected:
    void addApp(const Path& bundle, PlistDictionary info = {}) {
        files.addContents(bundle / "Contents/Info.plist", plistOf(std::move(info)));
    }
};

TEST_F(Inventory, OfAnEmptyDiskIsEmpty) {
    EXPECT_THAT(listApplications(scan()), IsEmpty());
    EXPECT_EQ(installedAppIndex(scan()), InstalledAppIndex{});
}

TEST_F(Inventory, ListsBothApplicationsFoldersInOrder) {
    files.addFolder(home("Applications/Third.app"));
    files.addFolder("/Applications/Second.app");
    files.addFolder("/Applications/First.app");
    EXPECT_THAT(listApplications(scan()),
                ElementsAre("/Applications/Second.app", "/Applications/First.app",
                            home("Applications/Third.app")));
}

TEST_F(Inventory, ListsNoLinkToABundle) {
    files.addFolder("/Elsewhere/Editor.app");
    files.addLink("/Applications/Editor.app", "/Elsewhere/Editor.app");
    files.addFolder("/Applications/Utilities");
    files.addLink("/Applications/Utilities/Editor.app", "/Elsewhere/Editor.app");
    EXPECT_THAT(listApplications(scan()), IsEmpty());
}

TEST_F(Inventory, LooksIntoOneLevelOfFolders) {
    files.addFolder("/Applications/Utilities/Terminal.app");
    files.addFolder("/Applications/Utilities/More/Deep.app");
    EXPECT_THAT(listApplications(scan()), ElementsAre("/Applications/Utilities/Terminal.app"));
}

TEST_F(Inventory, LooksIntoNoPackageLinkOrHiddenFolder) {
    files.addFolder("/Applications/Outer.app/Contents/Inner.app");
    files.addFolder("/Applications/Outer.app/Inner.app");
    files.addFolder("/Applications/Tools.bundle/Inner.app");
    files.addFolder("/Applications/Flagged/Inner.app");
    files.change("/Applications/Flagged", [](Attributes& marks) { marks.isPackage = true; });
    files.addFolder("/Applications/.Hidden/Inner.app");
    files.addFolder("/Applications/.Hidden.app");
    files.addFolder("/Elsewhere/Inner.app");
    files.addLink("/Applications/Link", "/Elsewhere");
    EXPECT_THAT(listApplications(scan()), ElementsAre("/Applications/Outer.app"));
}

TEST_F(Inventory, WantsExactlyTheExtension) {
    files.addFolder("/Applications/Loud.APP");
    files.addFolder("/Applications/Plain");
    files.addFolder("/Applications/Folder.app.old");
    files.addFile("/Applications/File.app", 10);
    EXPECT_THAT(listApplications(scan()), ElementsAre("/Applications/File.app"));
}

TEST_F(Inventory, KeepsABundleThatCannotBeAsked) {
    files.addFolder("/Applications/Editor.app");
    files.breakAttributes("/Applications/Editor.app");
    files.addFolder("/Applications/Broken/Inner.app");
    files.breakAttributes("/Applications/Broken");
    EXPECT_THAT(listApplications(scan()), ElementsAre("/Applications/Editor.app"));
}

TEST_F(Inventory, OfFoldersThatCannotBeListedIsEmpty) {
    files.addFolder("/Applications/Editor.app");
    files.addFolder(home("Applications/Other.app"));
    files.refuseReading("/Applications");
    EXPECT_THAT(listApplications(scan()), ElementsAre(home("Applications/Other.app")));
}

TEST_F(Inventory, IndexesIdentifiersAndFileNames) {
    addApp("/Applications/Google Chrome.app", {{"CFBundleIdentifier", text("com.google.Chrome")}});
    addApp("/Applications/NoIdentifier.app", {{"CFBundleName", text("x")}});
    addApp("/Applications/Number.app", {{"CFBundleIdentifier", PropertyList{std::int64_t{7}}}});
    files.addFolder("/Applications/zoom.us.app");
    addApp(home("Applications/Google Chrome.app"),
           {{"CFBundleIdentifier", text("com.google.Chrome")}});
    EXPECT_EQ(installedAppIndex(scan()),
              (InstalledAppIndex{.bundleIDs = {"com.google.Chrome"},
                                 .names = {"Google Chrome", "NoIdentifier", "Number", "zoom.us",
                                           "Google Chrome"}}));
}

TEST_F(Inventory, ReadsPropertyListsOfTheFirstKinds) {
    files.addContents("/Applications/Xml.app/Contents/Info.plist",
                      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key>"
                      "<string>com.acme.Xml</string></dict></plist>\n");
    EXPECT_THAT(installedAppIndex(scan()).bundleIDs, ElementsAre("com.acme.Xml"));
}

TEST_F(Inventory, IndexesNamesAlongBrokenPropertyLists) {
    for (const std::string& broken : brokenPlists) {
        files.addContents("/Applications/Editor.app/Contents/Info.plist", broken);
        EXPECT_EQ(installedAppIndex(scan()), (InstalledAppIndex{.names = {"Editor"}})) << broken;
    }
    std::string deep = "<?xml version=\"1.0\"?><plist>";
    for (int level = 0; level < 100'000; ++level) deep += "<array>";
    files.addContents("/Applications/Editor.app/Contents/Info.plist", deep);
    EXPECT_EQ(installedAppIndex(scan()), (InstalledAppIndex{.names = {"Editor"}}));
}

TEST_F(Inventory, IndexesNamesThatAreNotText) {
    files.addFolder("/Applications/Bad\xff\n.app");
    EXPECT_THAT(installedAppIndex(scan()).names, ElementsAre("Bad%FF\n"));
}

}  // namespace
}  // namespace morvane::CleanupScanner
