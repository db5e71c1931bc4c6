// What the program asked of the system, form by form and in order.

#include <unistd.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

using Effects = SystemTest;

TEST_F(Effects, AreToldOnceAndThenForgotten) {
    driver().call("requestNotifications");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"requestNotifications":7}])"));
    EXPECT_EQ(driver().effects(), Json::array());
}

TEST_F(Effects, OfTheWatchForAccess) {
    disk.host["fullDiskAccess"] = "denied";
    driver().begin("watchForAccess");
    driver().host({{"fullDiskAccess", "granted"}});
    driver().advance(1);
    EXPECT_EQ(
        driver().effects(),
        Json::parse(
            R"([{"openURL":"x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"},
                              {"activate":true}])"));
}

TEST_F(Effects, OfAFolderChooser) {
    disk.host["openPanel"] = {"/Users/sam/Keep"};
    driver().call("addIgnoredFolders");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"openPanel":{"prompt":"Ignore",
        "message":"Morvane won’t look inside these folders or suggest anything from them.",
        "directory":"/Users/sam"}}])"));
    EXPECT_EQ(driver().get("ignoredFolders"), Json::array({"/Users/sam/Keep"}));
}

TEST_F(Effects, OfAnUninstallInTheirOrder) {
    disk.app("/Applications/Busy.app", "com.a.busy");
    disk.propertyList("/Users/sam/Library/LaunchAgents/com.a.busy.helper.plist", "<dict/>");
    disk.tool("/bin/launchctl", "exit 1");
    disk.host["runningApplications"] = {
        {{"bundleIdentifier", "com.a.busy"}, {"bundlePath", "/Applications/Busy.app"}},
        {{"bundleIdentifier", "com.a.busy"}},
        {{"bundlePath", "/Applications/Busy.app"}},
        {{"bundleIdentifier", "com.a.other"}}};
    driver().call("scanApps", {{"force", true}});
    driver().call("uninstall", {{"app", "/Applications/Busy.app"}});
    const Json effects = driver().effects();
    // Each process is asked; one that both ways of looking found may be asked twice.
    Json asked = Json::array();
    Json rest = Json::array();
    for (const Json& effect : effects) {
        if (effect.contains("terminate")) {
            EXPECT_EQ(rest, Json::array());
            asked.push_back(effect.at("terminate"));
        } else {
            rest.push_back(effect);
        }
    }
    EXPECT_GE(std::count(asked.begin(), asked.end(), "com.a.busy"), 2);
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "/Applications/Busy.app"), 1);
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "com.a.other"), 0);
    EXPECT_EQ(rest,
              Json::array({{{"run",
                             {"/bin/launchctl", "bootout", "gui/" + std::to_string(::getuid()),
                              "/Users/sam/Library/LaunchAgents/com.a.busy.helper.plist"}}}}));
    EXPECT_FALSE(disk.has("/Applications/Busy.app"));
}

TEST_F(Effects, OnlyOfToolsThatWereReallyStarted) {
    disk.tool("/usr/local/bin/docker", "exit 0");
    disk.makeFolder("/Applications/Xcode.app");
    driver().call("scanDeveloper");
    EXPECT_EQ(driver().effects(),
              Json::parse(
                  R"([{"run":["/usr/local/bin/docker","system","df","--format","{{json .}}"]}])"));
}

TEST_F(Effects, OutliveARelaunch) {
    driver().call("requestNotifications");
    driver().call("relaunch");
    EXPECT_EQ(driver().effects("requestNotifications"), Json::array({7}));
}

}  // namespace
}  // namespace morvane::test
