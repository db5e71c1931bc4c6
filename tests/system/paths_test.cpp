// Paths are the disk's own, links stay inside it, and every byte of a name survives.

#include <gmock/gmock.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

using Paths = SystemTest;
using testing::HasSubstr;
using testing::Not;

Json bytesAt(DriverClient& driver, const std::string& path) {
    return driver.call("measure", {{"url", path}}).at("bytes");
}

TEST_F(Paths, AnAbsoluteTargetIsResolvedInsideTheDisk) {
    disk.file("/Volumes/Data/Library/Caches/com.a.One/data", 8192);
    disk.link("/Users/sam/Library", "/Volumes/Data/Library");
    EXPECT_EQ(bytesAt(driver(), "/Users/sam/Library/Caches"), 8192);
    scan();
    EXPECT_EQ(pathsOf(driver().get("crumbItems").at(0)),
              Json::array({"/Users/sam/Library/Caches/com.a.One"}));
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_FALSE(disk.has("/Volumes/Data/Library/Caches/com.a.One"));
    EXPECT_TRUE(disk.has("/Users/sam/.Trash/com.a.One/data"));
    EXPECT_TRUE(disk.has("/Users/sam/Library"));
}

TEST_F(Paths, NoNumberOfStepsUpLeadsOut) {
    disk.file("/etc/marker", 4096);
    disk.link("/Users/sam/up", "../../../../../../../../../../../etc");
    EXPECT_EQ(bytesAt(driver(), "/Users/sam/up/marker"), 4096);
    EXPECT_EQ(bytesAt(driver(), "/Users/sam/up/passwd"), 0);
    EXPECT_EQ(bytesAt(driver(), "/../../../../../../etc/marker"), 4096);
    EXPECT_EQ(bytesAt(driver(), "/../../../../../../etc/passwd"), 0);
}

TEST_F(Paths, ThirtyTwoLinksAreFollowedAndNoMore) {
    disk.file("/end/data", 4096);
    disk.link("/links/1", "/end");
    for (int number = 2; number <= 33; ++number) {
        disk.link("/links/" + std::to_string(number), std::to_string(number - 1));
    }
    disk.link("/links/self", "self");
    EXPECT_EQ(bytesAt(driver(), "/links/32/data"), 4096);
    EXPECT_EQ(bytesAt(driver(), "/links/33/data"), 0);
    EXPECT_EQ(bytesAt(driver(), "/links/self/data"), 0);
}

TEST_F(Paths, NothingShownOrStoredKnowsWhereTheDiskLies) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    disk.file("/Users/sam/Downloads/Thing.dmg", 8192);
    disk.app("/Applications/Writer.app", "com.a.writer");
    scan();
    driver().call("scanApps", {{"force", true}});
    driver().call("scanStorage", {{"force", true}});
    driver().call("sweep", {{"items", {"caches"}}});
    const std::string place = disk.folder().filename();
    for (const std::string field :
         {"sweepItems", "apps", "storageRoot", "history", "menuBarTrashed", "files", "disk"}) {
        EXPECT_THAT(driver().get(field).dump(), Not(HasSubstr(place)));
    }
    EXPECT_THAT(driver().effects().dump(), Not(HasSubstr(place)));
    for (const std::string& name : disk.names("/Users/sam/Library/Preferences")) {
        EXPECT_THAT(disk.content("/Users/sam/Library/Preferences/" + name), Not(HasSubstr(place)));
    }
}

TEST_F(Paths, ATextOfAPathSpellsEveryByte) {
    const std::string folder = "/Users/sam/Library/Developer/Xcode/Archives/day/";
    const std::vector<std::pair<std::string, std::string>> names{{"plain", "plain"},
                                                                 {"two\nlines", "two\nlines"},
                                                                 {"é", "é"},
                                                                 {"100%", "100%"},
                                                                 {"%41", "%41"},
                                                                 {"%7F", "%7F"},
                                                                 {"%25", "%2525"},
                                                                 {"%80", "%2580"},
                                                                 {"%ff", "%25ff"},
                                                                 {"\xff", "%FF"},
                                                                 {"\xff%", "%FF%25"},
                                                                 {"cut \xe6\x97", "cut %E6%97"},
                                                                 {"\xed\xa0\x80", "%ED%A0%80"},
                                                                 {"a\\\"b", "a\\\"b"}};
    Json expected = Json::array();
    for (const auto& [name, text] : names) {
        disk.file(folder + name + ".xcarchive/data", 4096);
        expected.push_back("arc:" + folder + text + ".xcarchive");
    }
    driver().call("scanDeveloper");
    EXPECT_EQ(sorted(all(driver().get("devItems"), "id")), sorted(expected));
    // The texts lead back to the very items.
    for (const auto& [name, text] : names) {
        EXPECT_EQ(bytesAt(driver(), folder + text + ".xcarchive"), 4096) << text;
    }
    driver().call("sweep", {{"items", all(driver().get("devItems"), "id")}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_EQ(disk.names(folder), std::vector<std::string>());
    driver().call("relaunch");
    driver().call("restore", {{"entry", driver().get("history").at(0).at("id")}});
    EXPECT_EQ(driver().get("restoreProblem"), Json::object());
    for (const auto& [name, text] : names) EXPECT_TRUE(disk.has(folder + name + ".xcarchive/data"));
    EXPECT_EQ(disk.names("/Users/sam/.Trash"), std::vector<std::string>());
}

TEST_F(Paths, TheTrashIsMadeWhenFirstNeededAndNothingInItIsOverwritten) {
    disk.text("/Users/sam/Library/Caches/com.a.One/data", "first", 100);
    scan();
    EXPECT_FALSE(disk.has("/Users/sam/.Trash"));
    driver().call("sweep", {{"items", {"caches"}}});
    disk.text("/Users/sam/Library/Caches/com.a.One/data", "second", 100);
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    const Json history = driver().get("history");
    const std::string second =
        history.at(0).at("trashed").at("/Users/sam/Library/Caches/com.a.One");
    EXPECT_EQ(history.at(1).at("trashed"),
              Json({{"/Users/sam/Library/Caches/com.a.One", "/Users/sam/.Trash/com.a.One"}}));
    EXPECT_EQ(disk.names("/Users/sam/.Trash").size(), 2U);
    EXPECT_EQ(disk.content("/Users/sam/.Trash/com.a.One/data"), "first");
    EXPECT_EQ(disk.content(second + "/data"), "second");
}

TEST_F(Paths, NamesThatLeaveNoRoomFindAFreeOneToo) {
    const std::string name(255, 'n');
    const std::string wide = "ab" + [] {
        std::string text;
        for (int count = 0; count < 84; ++count) text += "漢";
        return text;
    }();
    for (const std::string& each : {name, wide}) {
        disk.file("/Users/sam/Library/Caches/" + each + "/data", 4096);
        disk.file("/Users/sam/.Trash/" + each, 4096);
    }
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_EQ(disk.names("/Users/sam/.Trash").size(), 4U);
    driver().call("restore", {{"entry", driver().get("history").at(0).at("id")}});
    EXPECT_EQ(driver().get("restoreProblem"), Json::object());
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/" + name + "/data"));
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/" + wide + "/data"));
}

TEST_F(Paths, ATrashThatIsNoFolderTakesNothing) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 4096);
    disk.text("/Users/sam/.Trash", "a file");
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/com.a.One/data"));
    EXPECT_EQ(disk.content("/Users/sam/.Trash"), "a file");
    disk.remove("/Users/sam/.Trash");
    disk.makeFolder("/Users/sam/Elsewhere");
    disk.link("/Users/sam/.Trash", "/Users/sam/Elsewhere");
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/com.a.One/data"));
    EXPECT_EQ(disk.names("/Users/sam/Elsewhere"), std::vector<std::string>());
    EXPECT_EQ(driver().get("history"), Json::array());
}

}  // namespace
}  // namespace morvane::test
