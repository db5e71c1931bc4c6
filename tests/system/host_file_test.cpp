// host.json: what is refused, with nothing touched, and what stands for a key that is absent.

#include <fstream>

#include "support/tree_snapshot.h"
#include "system/system_test.h"

namespace morvane::test {
namespace {

using HostFile = SystemTest;

// Starts the driver with that text in host.json and expects a refusal that names `key`.
void expectRefusal(const TestDisk& disk, const std::string& text, const std::string& key) {
    std::ofstream(disk.folder() / "host.json") << text;
    const TreeSnapshot before = takeSnapshot(disk.folder());
    const Refusal refusal = runDriver({"--disk", disk.folder()});
    EXPECT_EQ(refusal.status, 2) << text;
    EXPECT_EQ(refusal.output, "") << text;
    EXPECT_NE(refusal.errors.find(key), std::string::npos) << text << " " << refusal.errors;
    EXPECT_EQ(std::count(refusal.errors.begin(), refusal.errors.end(), '\n'), 1) << refusal.errors;
    EXPECT_EQ(differences(before, takeSnapshot(disk.folder())), "") << text;
}

TEST_F(HostFile, RefusesAKeyOfAWrongTypeByItsName) {
    const std::vector<std::pair<std::string, std::string>> wrong{
        {"home", "1"},
        {"now", "17"},
        {"now", R"("yesterday")"},
        {"timeZone", "1"},
        {"locale", "[]"},
        {"active", R"("yes")"},
        {"bundle", R"("name")"},
        {"bundle", R"({"identifier":1})"},
        {"fullDiskAccess", R"("maybe")"},
        {"fullDiskAccess", "true"},
        {"unreadable", R"("/a")"},
        {"unreadable", "[1]"},
        {"immovable", "{}"},
        {"mounts", "[null]"},
        {"hidden", "1"},
        {"packages", "false"},
        {"aliases", "[[]]"},
        {"displayNames", "[]"},
        {"displayNames", R"({"/a":1})"},
        {"runningApplications", "{}"},
        {"runningApplications", "[1]"},
        {"runningApplications", R"([{"bundleIdentifier":1}])"},
        {"runningApplications", R"([{"refusesToQuit":1}])"},
        {"runningApplications", R"([{"quitsAfter":"1"}])"},
        {"registeredApplications", R"({"a":1})"},
        {"metadata", "[]"},
        {"metadata", R"({"/a":1})"},
        {"metadata", R"({"/a":{"lastUsed":5}})"},
        {"dates", R"({"/a":{"added":"then"}})"},
        {"notifications", R"("granted")"},
        {"answersNotifications", R"("provisional")"},
        {"volume", "1"},
        {"volume", R"({"total":"much"})"},
        {"mountedFrom", "1"},
        {"openPanel", R"("/a")"},
        {"openPanel", "[1]"},
        {"updates", "true"},
        {"updates", R"({"canCheck":"yes"})"},
        {"website", "1"},
        {"acknowledgements", "[]"}};
    for (const auto& [key, value] : wrong) {
        expectRefusal(disk, "{\"" + key + "\":" + value + "}", key);
    }
}

TEST_F(HostFile, RefusesAFileThatIsNoJSONObject) {
    for (const std::string text : {"", "{", "[]", "1", "{\"active\":true}}", "\xff"}) {
        expectRefusal(disk, text, "host.json");
    }
}

TEST_F(HostFile, RefusesADiskWithoutAHome) {
    disk.remove("/Users/sam");
    disk.makeFolder("/Users/Shared");
    disk.makeFolder("/Users/.secret");
    disk.text("/Users/file", "");
    expectRefusal(disk, "{}", "home");
    expectRefusal(disk, "{\"home\":null}", "home");
    disk.remove("/Users");
    expectRefusal(disk, "{}", "home");
}

TEST_F(HostFile, TakesTheFirstFolderOfUsersForTheHome) {
    disk.makeFolder("/Users/Shared");
    disk.makeFolder("/Users/.aa");
    disk.text("/Users/aa", "");
    disk.makeFolder("/Users/zoe");
    disk.makeFolder("/Users/mia");
    disk.host.erase("home");
    driver().call("addIgnoredFolders");
    EXPECT_EQ(driver().effects("openPanel").at(0).at("directory"), "/Users/mia");
}

TEST_F(HostFile, PassesOverUnknownKeysAndCountsNullAsAbsent) {
    disk.makeFolder("/Library/Application Support/com.apple.TCC");
    disk.text("/Library/Application Support/com.apple.TCC/TCC.db", "x");
    disk.host = {{"colour", {{"deep", 1}}},
                 {"home", nullptr},
                 {"timeZone", nullptr},
                 {"locale", nullptr},
                 {"active", nullptr},
                 {"bundle", nullptr},
                 {"unreadable", nullptr},
                 {"immovable", nullptr},
                 {"mounts", nullptr},
                 {"hidden", nullptr},
                 {"packages", nullptr},
                 {"aliases", nullptr},
                 {"displayNames", nullptr},
                 {"dates", nullptr},
                 {"fullDiskAccess", nullptr},
                 {"metadata", nullptr},
                 {"now", nullptr},
                 {"notifications", nullptr},
                 {"runningApplications", nullptr},
                 {"openPanel", nullptr},
                 {"registeredApplications", nullptr},
                 {"answersNotifications", nullptr}};
    // "probe" is what stands when the key is absent, and the probe finds a file it can open.
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
    driver().error({{"advance", 1}});
    driver().call("requestNotifications");
    EXPECT_EQ(driver().get("notificationStatus"), "granted");
    driver().call("addIgnoredFolders");
    EXPECT_EQ(driver().get("ignoredFolders"), Json::array());
}

TEST_F(HostFile, NeedsNoFileAtAll) {
    DriverClient client(disk.folder());
    EXPECT_EQ(client.get("fullDiskAccess"), "denied");
    client.call("refreshFreeSpace");
    // The file system that holds the disk answers for the volume.
    const auto room = std::filesystem::space(disk.folder());
    EXPECT_EQ(client.get("disk").at("totalBytes"), room.capacity);
    EXPECT_FALSE(std::filesystem::exists(disk.folder() / "host.json"));
}

TEST_F(HostFile, RefusesAHostFileThatIsNoFile) {
    std::filesystem::create_directory(disk.folder() / "host.json");
    EXPECT_EQ(runDriver({"--disk", disk.folder()}).status, 2);
    std::filesystem::remove(disk.folder() / "host.json");
    disk.gate("host.json");
    EXPECT_EQ(runDriver({"--disk", disk.folder()}).status, 2);
}

TEST_F(HostFile, NamesTheDefaultsAfterTheBundle) {
    disk.host["bundle"] = {{"identifier", "org.example.tidy"}};
    driver().set({{"showInMenuBar", false}});
    EXPECT_EQ(disk.names("/Users/sam/Library/Preferences"),
              std::vector<std::string>{"org.example.tidy.plist"});
    EXPECT_EQ(endDriver(), 0);
    disk.host["bundle"] = {{"identifier", nullptr}};
    EXPECT_EQ(driver().get("showInMenuBar"), true);
    driver().set({{"remindWhenReady", false}});
    EXPECT_EQ(disk.names("/Users/sam/Library/Preferences"),
              (std::vector<std::string>{"Morvane.plist", "org.example.tidy.plist"}));
    EXPECT_EQ(endDriver(), 0);
    disk.host["bundle"] = {{"identifier", "org.example.tidy"}};
    EXPECT_EQ(driver().get("showInMenuBar"), false);
    EXPECT_EQ(driver().get("remindWhenReady"), true);
}

TEST_F(HostFile, NeverTakesItsOwnBundleForAnAppOnTheDisk) {
    disk.host["bundle"] = {{"identifier", "org.example.tidy"}};
    disk.app("/Applications/Tidy.app", "org.example.tidy");
    disk.app("/Applications/Other.app", "org.example.other");
    driver().call("scanApps", {{"force", true}});
    EXPECT_EQ(all(driver().get("apps"), "name"), Json::array({"Other"}));
}

TEST_F(HostFile, SpeaksInTheZoneAndTheLanguageOfTheHost) {
    disk.host["timeZone"] = "Europe/Berlin";
    disk.host["locale"] = "de_DE";
    EXPECT_EQ(driver().call("sweepDateText", {{"date", "2026-06-15T10:05:00Z"}}), "Today, 12:05");
    EXPECT_EQ(driver().call("sweepDateText", {{"date", "2026-03-02T10:05:00Z"}}), "2. März");
    // Past midnight in Berlin while it is still the day before in London.
    EXPECT_EQ(driver().call("relativeDayText",
                            {{"date", "2026-06-14T21:59:00Z"}, {"now", "2026-06-14T22:01:00Z"}}),
              "Yesterday");
}

TEST_F(HostFile, SpeaksAmericanEnglishInUniversalTimeByItself) {
    EXPECT_EQ(driver().call("relativeDayText",
                            {{"date", "2026-06-14T21:59:00Z"}, {"now", "2026-06-14T22:01:00Z"}}),
              "Today");
    const std::string words = driver().call("sweepDateText", {{"date", "2026-06-15T10:05:00Z"}});
    EXPECT_EQ(words.substr(0, 12), "Today, 10:05");
    EXPECT_EQ(words.substr(words.size() - 2), "AM");
    EXPECT_EQ(driver().call("sweepDateText", {{"date", "2025-03-02T10:05:00Z"}}), "March 2, 2025");
}

}  // namespace
}  // namespace morvane::test
