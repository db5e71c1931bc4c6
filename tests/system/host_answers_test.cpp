// What each key of host.json makes the program see, and what a later `host` request changes.

#include "support/tree_snapshot.h"
#include "system/system_test.h"

namespace morvane::test {
namespace {

using HostAnswers = SystemTest;

Json measure(DriverClient& driver, const std::string& path) {
    return driver.call("measure", {{"url", path}}).at("bytes");
}

TEST_F(HostAnswers, AnUnreadableFolderRefusesToBeListedWithAllBelowIt) {
    disk.file("/Users/sam/Library/Caches/com.a.One/sub/data", 8192);
    disk.file("/Users/sam/Library/Caches/com.a.Two/data", 4096);
    disk.host["unreadable"] = {"/Users/sam/Library/Caches/com.a.One"};
    EXPECT_EQ(measure(driver(), "/Users/sam/Library/Caches"), 4096);
    EXPECT_EQ(measure(driver(), "/Users/sam/Library/Caches/com.a.One/sub"), 0);
    // Its attributes are not refused.
    EXPECT_EQ(measure(driver(), "/Users/sam/Library/Caches/com.a.One/sub/data"), 8192);
    driver().host({{"unreadable", Json::array()}});
    EXPECT_EQ(measure(driver(), "/Users/sam/Library/Caches"), 12288);
}

TEST_F(HostAnswers, AnUnreadableItemCanBeMovedAllTheSame) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    driver().call("startScan", {{"showOverview", false}});
    driver().host({{"unreadable", {"/Users/sam/Library/Caches/com.a.One"}}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_FALSE(disk.has("/Users/sam/Library/Caches/com.a.One"));
    EXPECT_TRUE(disk.has("/Users/sam/.Trash/com.a.One/data"));
}

TEST_F(HostAnswers, TheProgramsOwnDefaultsAndTrashAreNeverUnreadable) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    driver().call("startScan", {{"showOverview", false}});
    driver().host({{"unreadable", {"/Users/sam"}}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_TRUE(disk.has("/Users/sam/.Trash/com.a.One"));
    driver().call("restore", {{"entry", driver().get("history").at(0).at("id")}});
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/com.a.One"));
    driver().call("relaunch");
    EXPECT_EQ(driver().get("history").at(0).at("restored"), true);
}

TEST_F(HostAnswers, AnImmovableItemStaysAndAFolderAboveItMoves) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 8192);
    disk.file("/Users/sam/Library/Caches/com.a.Two/held/data", 4096);
    disk.host["immovable"] = {"/Users/sam/Library/Caches/com.a.One",
                              "/Users/sam/Library/Caches/com.a.Two/held"};
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_EQ(driver().get("scanPhase"), "success");
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/com.a.One/data"));
    EXPECT_TRUE(disk.has("/Users/sam/.Trash/com.a.Two/held/data"));
}

TEST_F(HostAnswers, DeletingAFolderWithSomethingImmovableTakesWhatCanBeDeleted) {
    disk.file("/Users/sam/Library/Caches/com.a.Two/held/data", 4096);
    disk.file("/Users/sam/Library/Caches/com.a.Two/loose/data", 4096);
    disk.host["immovable"] = {"/Users/sam/Library/Caches/com.a.Two/held"};
    scan();
    driver().set({{"alwaysUseTrash", false}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/com.a.Two/held/data"));
    EXPECT_FALSE(disk.has("/Users/sam/Library/Caches/com.a.Two/loose"));
    EXPECT_FALSE(disk.has("/Users/sam/.Trash"));
}

TEST_F(HostAnswers, NoRenameGoesIntoOutOfOrOverAMount) {
    disk.file("/Users/sam/Library/Caches/com.a.One/mounted/data", 4096);
    disk.file("/Users/sam/Library/Caches/com.a.Two/data", 4096);
    disk.file("/Users/sam/Library/Logs/old.log", 4096);
    disk.host["mounts"] = {"/Users/sam/Library/Caches/com.a.One/mounted",
                           "/Users/sam/Library/Logs"};
    scan();
    driver().call("sweep", {{"items", {"caches", "logs"}}});
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/com.a.One/mounted/data"));
    EXPECT_TRUE(disk.has("/Users/sam/Library/Logs/old.log"));
    EXPECT_EQ(disk.names("/Users/sam/.Trash"), std::vector<std::string>{"com.a.Two"});
}

TEST_F(HostAnswers, ATrashOnAnotherVolumeTakesAndGivesNothing) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 4096);
    disk.makeFolder("/Users/sam/.Trash");
    scan();
    driver().host({{"mounts", {"/Users/sam/.Trash"}}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_TRUE(disk.has("/Users/sam/Library/Caches/com.a.One/data"));
    driver().host({{"mounts", nullptr}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_FALSE(disk.has("/Users/sam/Library/Caches/com.a.One"));
    driver().host({{"mounts", {"/Users/sam/.Trash"}}});
    const std::string id = driver().get("history").at(0).at("id");
    driver().call("restore", {{"entry", id}});
    EXPECT_EQ(driver().get("restoreProblem"), Json({{id, "1 item couldn’t be put back."}}));
    EXPECT_TRUE(disk.has("/Users/sam/.Trash/com.a.One/data"));
}

TEST_F(HostAnswers, HiddenFlagsAndPackageFlagsCountLikeNames) {
    disk.file("/Users/sam/Library/Caches/com.a.One/data", 4096);
    disk.file("/Users/sam/Library/Caches/com.a.Two/data", 4096);
    disk.app("/Applications/Set/Tool.app", "com.a.tool");
    disk.host["hidden"] = {"/Users/sam/Library/Caches/com.a.One"};
    disk.host["packages"] = {"/Applications/Set"};
    scan();
    EXPECT_EQ(pathsOf(driver().get("crumbItems").at(0)),
              Json::array({"/Users/sam/Library/Caches/com.a.Two"}));
    EXPECT_EQ(driver().call("listApplications"), Json::array());
    driver().host({{"packages", nullptr}, {"hidden", nullptr}});
    EXPECT_EQ(driver().call("listApplications"), Json::array({"/Applications/Set/Tool.app"}));
}

TEST_F(HostAnswers, DisplayNamesAreWhatAppsAreCalled) {
    disk.app("/Applications/Writer.app", "com.a.writer");
    disk.host["displayNames"] = {{"/Applications/Writer.app", "Schreiber.app"}};
    driver().call("scanApps", {{"force", true}});
    EXPECT_EQ(driver().get("apps").at(0).at("name"), "Schreiber");
    driver().host({{"displayNames", nullptr}});
    driver().call("scanApps", {{"force", true}});
    EXPECT_EQ(driver().get("apps").at(0).at("name"), "Writer");
}

TEST_F(HostAnswers, NotificationsAreAsTheSystemSays) {
    const std::vector<std::pair<std::string, std::string>> states{
        {"notDetermined", "notDetermined"},
        {"denied", "denied"},
        {"authorized", "granted"},
        {"provisional", "granted"},
        {"ephemeral", "granted"}};
    for (const auto& [system, status] : states) {
        driver().host({{"notifications", system}});
        driver().call("refreshPermissions");
        EXPECT_EQ(driver().get("notificationStatus"), status);
    }
}

TEST_F(HostAnswers, AnAnswerToTheQuestionBecomesTheStatus) {
    disk.host["answersNotifications"] = "denied";
    driver().call("requestNotifications");
    EXPECT_EQ(driver().get("notificationStatus"), "denied");
    EXPECT_EQ(driver().get("remindWhenReady"), false);
    // Once it is answered, the user is not asked again.
    driver().host({{"answersNotifications", "authorized"}});
    driver().call("requestNotifications");
    EXPECT_EQ(driver().get("notificationStatus"), "denied");
    driver().host({{"notifications", "notDetermined"}});
    driver().call("requestNotifications");
    EXPECT_EQ(driver().get("notificationStatus"), "granted");
    EXPECT_EQ(driver().get("remindWhenReady"), true);
    EXPECT_EQ(driver().effects("requestNotifications"), Json::array({7, 7, 7}));
}

TEST_F(HostAnswers, AVolumeKnowsWhatItIsGivenAndFailsWhenNull) {
    driver().call("refreshFreeSpace");
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 500'000'000'000);
    EXPECT_EQ(driver().get("disk").at("freeBytes"), 100'000'000'000);
    EXPECT_EQ(driver().get("disk").at("purgeableBytes"), 40'000'000'000);
    driver().host({{"volume", nullptr}});
    driver().call("refreshFreeSpace");
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 500'000'000'000);
    driver().host({{"volume", {{"total", 7000}, {"available", 3000}}}});
    driver().call("refreshFreeSpace");
    EXPECT_EQ(driver().get("disk"), Json({{"volumeName", "Macintosh HD"},
                                          {"totalBytes", 7000},
                                          {"freeBytes", 3000},
                                          {"purgeableBytes", 0},
                                          {"systemBytes", nullptr},
                                          {"measured", Json::object()},
                                          {"skipped", Json::array()},
                                          {"isComplete", false}}));
    driver().host({{"volume", {{"name", "Data"}, {"total", 9000}}}});
    driver().call("refreshFreeSpace");
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 7000);
    driver().host(
        {{"volume", {{"total", 9000}, {"available", 500}, {"availableForImportantUsage", 400}}}});
    driver().call("refreshFreeSpace");
    EXPECT_EQ(driver().get("disk").at("purgeableBytes"), 0);
}

TEST_F(HostAnswers, ReplacingAKeyChangesNoFieldByItself) {
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
    driver().host({{"fullDiskAccess", "denied"}});
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
    driver().call("refreshPermissions");
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
}

TEST_F(HostAnswers, AReplacementIsInMemoryOnly) {
    disk.writeHost();
    const TreeSnapshot before = takeSnapshot(disk.folder());
    DriverClient client(disk.folder());
    client.host({{"fullDiskAccess", "denied"}, {"active", false}});
    client.call("refreshPermissions");
    EXPECT_EQ(client.get("fullDiskAccess"), "denied");
    EXPECT_EQ(client.end(), 0);
    EXPECT_EQ(differences(before, takeSnapshot(disk.folder())), "");
}

TEST_F(HostAnswers, AWrongReplacementChangesNothing) {
    for (const std::string key : {"home", "now", "timeZone", "locale", "bundle"}) {
        EXPECT_NE(
            driver().error({{"host", {{"fullDiskAccess", "denied"}, {key, nullptr}}}}).find(key),
            std::string::npos);
    }
    driver().error({{"host", {{"fullDiskAccess", "denied"}, {"active", 1}}}});
    driver().error({{"host", {{"fullDiskAccess", "denied"}, {"volume", {{"total", -1.5}}}}}});
    driver().call("refreshPermissions");
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
    driver().host({{"unheardOf", 1}});
}

}  // namespace
}  // namespace morvane::test
