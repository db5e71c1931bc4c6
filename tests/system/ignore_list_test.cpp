// Folders the user named to be left alone.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class IgnoreList : public SystemTest {
protected:
    void ignore(const Json& folders) {
        driver().host({{"openPanel", folders}});
        driver().call("addIgnoredFolders");
    }
    static inline const std::string caches = "/Users/sam/Library/Caches/";
};

TEST_F(IgnoreList, TakesPartsOutOfItemsAtOnce) {
    for (const std::string name : {"com.a.One", "com.a.Two", "com.a.Twofold"}) {
        disk.file(caches + name + "/data", 4096);
    }
    disk.file("/Users/sam/Downloads/A.dmg", 4096);
    disk.file("/Users/sam/.npm/_cacache/data", 4096);
    disk.app("/Applications/A.app", "com.a.app");
    scan();
    driver().call("scanApps", {{"force", true}});
    driver().call("applyPreset", {{"preset", "all"}});
    ignore(
        {caches + "com.a.Two", "/Users/sam/Downloads/", "/Users/sam/./x/../.npm", "/Applications"});
    EXPECT_EQ(driver().get("ignoredFolders"),
              Json::array({caches + "com.a.Two", "/Users/sam/Downloads", "/Users/sam/.npm",
                           "/Applications"}));
    EXPECT_EQ(sorted(pathsOf(driver().get("crumbItems").at(0))),
              Json::array({caches + "com.a.One", caches + "com.a.Twofold"}));
    EXPECT_EQ(driver().get("crumbItems").at(0).at("bytes"), 8192);
    EXPECT_EQ(driver().get("downloadItems"), Json::array());
    EXPECT_EQ(driver().get("devSections"), Json::array());
    EXPECT_EQ(driver().get("apps"), Json::array());
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"caches"}));
    EXPECT_EQ(driver().get("devSelection"), Json::array());
    scan();
    EXPECT_EQ(driver().get("crumbItems").at(0).at("bytes"), 8192);
    EXPECT_EQ(driver().get("downloadItems"), Json::array());
    driver().call("relaunch");
    EXPECT_EQ(driver().get("ignoredFolders").size(), 4U);
}

TEST_F(IgnoreList, AParentTakesThePlaceOfItsFoldersWithoutFilteringAtOnce) {
    disk.file(caches + "com.a.One/data", 4096);
    scan();
    ignore({"/Users/sam/Library/Logs"});
    driver().call("scanApps", {{"force", true}});
    ignore({"/Users/sam/Library"});
    EXPECT_EQ(driver().get("ignoredFolders"), Json::array({"/Users/sam/Library"}));
    EXPECT_EQ(driver().get("crumbItems").size(), 1U);
    EXPECT_EQ(driver().get("appsScannedAt"), nullptr);
    scan();
    EXPECT_EQ(driver().get("crumbItems"), Json::array());
}

TEST_F(IgnoreList, AFolderAlreadyCoveredChangesNothing) {
    ignore({"/Users/sam/Library"});
    driver().call("scanApps", {{"force", true}});
    ignore({"/Users/sam/Library", "/Users/sam/Library/Caches"});
    EXPECT_EQ(driver().get("ignoredFolders"), Json::array({"/Users/sam/Library"}));
    EXPECT_EQ(driver().get("appsScannedAt"), "2026-06-15T12:00:00.000Z");
    driver().host({{"openPanel", nullptr}});
    driver().call("addIgnoredFolders");
    EXPECT_EQ(driver().get("ignoredFolders"), Json::array({"/Users/sam/Library"}));
}

TEST_F(IgnoreList, RemovingAnEntryBringsNothingBackBeforeTheNextScan) {
    disk.file(caches + "com.a.One/data", 4096);
    scan();
    ignore({"/"});
    EXPECT_EQ(driver().get("crumbItems"), Json::array());
    driver().call("removeIgnoredFolder", {{"path", "/"}});
    EXPECT_EQ(driver().get("crumbItems"), Json::array());
    EXPECT_EQ(driver().get("scannedAt"), "2026-06-15T12:00:00.000Z");
    scan();
    EXPECT_EQ(driver().get("crumbItems").size(), 1U);
}

TEST_F(IgnoreList, IsATestOfWholeNames) {
    const auto ignored = [&](const std::string& url, const Json& folders) {
        return driver().call("isIgnored", {{"url", url}, {"folders", folders}});
    };
    EXPECT_EQ(ignored("/a/Foo", {"/a/Foo"}), true);
    EXPECT_EQ(ignored("/a/Foo/b", {"/a/Foo"}), true);
    EXPECT_EQ(ignored("/a/Foobar", {"/a/Foo"}), false);
    EXPECT_EQ(ignored("/a/foo", {"/a/Foo"}), false);
    EXPECT_EQ(ignored("/a/./x/../Foo", {"/a/Foo"}), true);
    EXPECT_EQ(ignored("/anything", {"/"}), true);
    EXPECT_EQ(ignored("/a", Json::array()), false);
}

}  // namespace
}  // namespace morvane::test
