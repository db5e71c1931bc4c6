// Stored settings that are malformed or hostile: what fits is kept, what does not counts as absent.

#include <fstream>
#include <sys/stat.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

class BadDefaults : public SystemTest {
protected:
    BadDefaults() { disk.host["bundle"] = {{"identifier", "a.b.c"}}; }
    static inline const std::string file = "/Users/sam/Library/Preferences/a.b.c.plist";

    void store(const std::string& body) { disk.propertyList(file, body); }
    void storeHistory(const std::string& json) {
        store("<dict><key>sweepHistory</key><data>" + base64(json) + "</data></dict>");
    }
    void expectFreshStart() {
        EXPECT_EQ(driver().get("history"), Json::array());
        EXPECT_EQ(driver().get("schedule"), "weekly");
        EXPECT_EQ(driver().get("alwaysUseTrash"), true);
        EXPECT_EQ(driver().get("lastScanAt"), nullptr);
        EXPECT_EQ(driver().get("ignoredFolders"), Json::array());
        EXPECT_EQ(driver().get("hasOnboarded"), false);
        EXPECT_EQ(driver().get("disk").at("totalBytes"), 0);
    }
    static std::string base64(const std::string& bytes) {
        static const std::string letters =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        std::string text;
        for (std::size_t place = 0; place < bytes.size(); place += 3) {
            unsigned group = 0;
            for (std::size_t at = place; at < place + 3; ++at) {
                group =
                    group << 8U | (at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U);
            }
            for (std::size_t at = 0; at < 4; ++at) {
                text += place + at > bytes.size() ? '=' : letters[group >> (18 - 6 * at) & 63U];
            }
        }
        return text;
    }
};

TEST_F(BadDefaults, OfWrongTypesCountAsAbsent) {
    store(
        "<dict><key>hasOnboarded</key><string>maybe</string>"
        "<key>onboardingStep</key><string>finish</string>"
        "<key>scanSchedule</key><string>off</string>"
        "<key>remindWhenReady</key><string>no</string>"
        "<key>showInMenuBar</key><integer>0</integer>"
        "<key>alwaysUseTrash</key><array/>"
        "<key>lastScanAt</key><string>2026-01-01</string>"
        "<key>lastSweptAt</key><real>5</real>"
        "<key>ignoredFolders</key><array><string>/a</string><integer>1</integer></array>"
        "<key>sweepHistory</key><string>[]</string>"
        "<key>lastDiskUsage</key><dict/></dict>");
    expectFreshStart();
    EXPECT_EQ(driver().get("onboardingStep"), "welcome");
    EXPECT_EQ(driver().get("remindWhenReady"), true);
    EXPECT_EQ(driver().get("showInMenuBar"), true);
    EXPECT_EQ(driver().get("lastSweptAt"), nullptr);
}

TEST_F(BadDefaults, OfRightTypesAreTaken) {
    store(
        "<dict><key>hasOnboarded</key><true/><key>onboardingStep</key><string>access</string>"
        "<key>scanSchedule</key><string>Monthly</string><key>remindWhenReady</key><false/>"
        "<key>lastScanAt</key><date>2026-01-02T03:04:05Z</date>"
        "<key>ignoredFolders</key><array><string>/a</string></array>"
        "<key>unknown</key><integer>7</integer></dict>");
    EXPECT_EQ(driver().get("hasOnboarded"), true);
    EXPECT_EQ(driver().get("onboardingStep"), "access");
    EXPECT_EQ(driver().get("schedule"), "monthly");
    EXPECT_EQ(driver().get("remindWhenReady"), false);
    EXPECT_EQ(driver().get("lastScanAt"), "2026-01-02T03:04:05.000Z");
    EXPECT_EQ(driver().get("ignoredFolders"), Json::array({"/a"}));
    // What belongs to others stays in the file.
    driver().set({{"showInMenuBar", false}});
    EXPECT_NE(disk.content(file).find("unknown"), std::string::npos);
}

TEST_F(BadDefaults, ThatAreNoPropertyListAreAFreshStartAndCanBeWritten) {
    for (const std::string& content :
         {std::string(), std::string("nonsense"), std::string("bplist00"), std::string(5000, '\0'),
          std::string("<plist><dict><key>a</key></dict></plist>"),
          std::string("<?xml version=\"1.0\"?><!DOCTYPE p [<!ENTITY a \"aaaa\">"
                      "<!ENTITY b \"&a;&a;&a;&a;\">]><plist><string>&b;</string></plist>")}) {
        disk.text(file, content);
        expectFreshStart();
        driver().set({{"schedule", "off"}});
        EXPECT_EQ(endDriver(), 0);
        EXPECT_EQ(driver().get("schedule"), "off");
        EXPECT_EQ(endDriver(), 0);
    }
}

TEST_F(BadDefaults, OfEndlessDepthAreAFreshStart) {
    std::string deep;
    for (int level = 0; level < 200'000; ++level) deep += "<array>";
    disk.text(file, "<plist>" + deep);
    expectFreshStart();
    EXPECT_EQ(endDriver(), 0);
    std::string nested = "<dict><key>x</key>";
    for (int level = 0; level < 5000; ++level) nested += "<array>";
    for (int level = 0; level < 5000; ++level) nested += "</array>";
    store(nested + "</dict>");
    expectFreshStart();
}

TEST_F(BadDefaults, ThatAreNoFileHoldNobodyUp) {
    disk.makeFolder(file);
    expectFreshStart();
    EXPECT_EQ(endDriver(), 0);
    disk.remove(file);
    disk.pipe(file);
    expectFreshStart();
    EXPECT_EQ(endDriver(), 0);
    disk.remove(file);
    disk.link(file, "a.b.c.plist");
    expectFreshStart();
}

TEST_F(BadDefaults, AHistoryWithOneBadEntryIsEmpty) {
    const std::string good =
        R"({"id":"6BA7B810-9DAD-11D1-80B4-00C04FD430C8","date":800000000.5,"summary":"1 item · 8 KB","trashed":{"/Users/sam/a":"/Users/sam/.Trash/a"},"restored":false})";
    storeHistory("[" + good + "]");
    EXPECT_EQ(driver().get("history"),
              Json::array({{{"id", "6BA7B810-9DAD-11D1-80B4-00C04FD430C8"},
                            {"date", "2026-05-09T06:13:20.500Z"},
                            {"summary", "1 item · 8 KB"},
                            {"trashed", {{"/Users/sam/a", "/Users/sam/.Trash/a"}}},
                            {"restored", false}}}));
    EXPECT_EQ(driver().get("historyStates"),
              Json({{"6BA7B810-9DAD-11D1-80B4-00C04FD430C8", "emptied"}}));
    EXPECT_EQ(endDriver(), 0);
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    for (const std::string& bad :
         {changed(",\"restored\":false", ""), changed("false", "0"),
          changed("800000000.5", "\"x\""), changed("800000000.5", "1e400"),
          changed("6BA7B810-", "6BA7B810"), changed("\"/Users/sam/.Trash/a\"", "5"),
          changed("\"1 item · 8 KB\"", "null"), std::string("null"), std::string("[]"),
          std::string("{}")}) {
        storeHistory("[" + good + "," + bad + "]");
        EXPECT_EQ(driver().get("history"), Json::array()) << bad;
        EXPECT_EQ(endDriver(), 0);
    }
    for (const std::string& text : {std::string(), std::string("{}"), std::string("[[]"),
                                    std::string(100'000, '['), std::string("\xff")}) {
        storeHistory(text);
        EXPECT_EQ(driver().get("history"), Json::array());
        EXPECT_EQ(endDriver(), 0);
    }
}

TEST_F(BadDefaults, AHostileHistoryPutsNothingBackOutsideTheTrash) {
    disk.text("/Users/sam/Precious/data", "precious");
    disk.text("/Users/sam/.Trash/a", "trashed");
    disk.link("/Users/sam/link", "/Users/sam/Precious");
    const auto entry = [](const std::string& trashed) {
        return R"([{"id":"6BA7B810-9DAD-11D1-80B4-00C04FD430C8","date":800000000,"summary":"x","trashed":)" +
               trashed + R"(,"restored":false}])";
    };
    // Over an item that is there, into a path that is none, and from no path at all.
    for (const std::string trashed :
         {R"({"/Users/sam/Precious/data":"/Users/sam/.Trash/a"})", R"({"":"/Users/sam/.Trash/a"})",
          R"({"relative/a":"/Users/sam/.Trash/a"})", R"({"/Users/sam/b":""})",
          R"({"/":"/Users/sam/.Trash/a"})", R"({"/Users/sam":"/Users/sam/.Trash/a"})"}) {
        storeHistory(entry(trashed));
        driver().call("restore", {{"entry", "6BA7B810-9DAD-11D1-80B4-00C04FD430C8"}});
        EXPECT_EQ(disk.content("/Users/sam/Precious/data"), "precious") << trashed;
        EXPECT_EQ(disk.content("/Users/sam/.Trash/a"), "trashed") << trashed;
        EXPECT_EQ(endDriver(), 0);
    }
}

TEST_F(BadDefaults, ADiskUsageOfAnotherShapeIsTheBlankOne) {
    const std::string good =
        R"({"volumeName":"D","totalBytes":9,"freeBytes":1,"purgeableBytes":0,"measured":["apps",3,"media",2],"skipped":["documents"],"isComplete":true})";
    const auto stored = [&](const std::string& json) {
        store("<dict><key>lastDiskUsage</key><data>" + base64(json) + "</data></dict>");
        const Json usage = driver().get("disk");
        EXPECT_EQ(endDriver(), 0);
        return usage;
    };
    EXPECT_EQ(stored(good), Json({{"volumeName", "D"},
                                  {"totalBytes", 9},
                                  {"freeBytes", 1},
                                  {"purgeableBytes", 0},
                                  {"systemBytes", nullptr},
                                  {"measured", {{"apps", 3}, {"media", 2}}},
                                  {"skipped", {"documents"}},
                                  {"isComplete", true}}));
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    for (const std::string& bad :
         {changed("\"totalBytes\":9,", ""), changed("9", "\"9\""), changed("9", "1e30"),
          changed("[\"apps\",3,\"media\",2]", "{\"apps\":3}"), changed("3,", ""),
          changed("\"apps\"", "\"garden\""), changed("true", "1"), changed("\"D\"", "null"),
          std::string("[]")}) {
        EXPECT_EQ(stored(bad).at("totalBytes"), 0) << bad;
    }
}

TEST_F(BadDefaults, ThatCannotBeWrittenAreLivedWith) {
    disk.text("/Users/sam/Library/Preferences", "a file in the place of the folder");
    driver().set({{"schedule", "off"}});
    EXPECT_EQ(driver().get("schedule"), "off");
    driver().call("relaunch");
    EXPECT_TRUE(driver().get("schedule").is_string());
}

}  // namespace
}  // namespace morvane::test
