// How tools of the disk are started: place, environment, descriptors, limits.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class Tools : public SystemTest {
protected:
    Json run(const std::string& tool, const Json& arguments = Json::array()) {
        return driver().call("runProcess",
                             {{"executable", tool}, {"arguments", arguments}, {"limit", 60}});
    }
    std::string outputOf(const std::string& tool, const Json& arguments = Json::array()) {
        const Json ran = run(tool, arguments);
        if (!ran.is_object()) return "not started";
        EXPECT_EQ(ran.at("status"), 0);
        return ran.at("output");
    }
    [[nodiscard]] std::string root() const { return (disk.folder() / "root").native(); }
};

TEST_F(Tools, RunFromInsideTheDiskInItsTopFolder) {
    disk.tool("/usr/bin/xcrun", R"(echo "$0"; pwd -P; echo "$MORVANE_DISK")");
    EXPECT_EQ(outputOf("/usr/bin/xcrun"),
              root() + "/usr/bin/xcrun\n" + root() + "\n" + disk.folder().native() + "\n");
}

TEST_F(Tools, AToolOfThisMachineNeverStandsIn) {
    EXPECT_EQ(run("/bin/sh"), nullptr);
    EXPECT_EQ(run("/bin/true"), nullptr);
    disk.link("/bin/true", "../../../../../../../../bin/sh");
    EXPECT_EQ(run("/bin/true"), nullptr);
    EXPECT_EQ(driver().effects("run"), Json::array());
}

TEST_F(Tools, ThatCannotBeExecutedFailToLaunch) {
    disk.text("/usr/bin/plain", "#!/bin/sh\necho no\n");
    disk.makeFolder("/usr/bin/folder");
    disk.pipe("/usr/bin/pipe");
    disk.text("/usr/bin/garbage", "not a program");
    std::filesystem::permissions(disk.real("/usr/bin/garbage"), std::filesystem::perms(0755));
    for (const std::string name : {"plain", "folder", "pipe", "garbage", "missing"}) {
        EXPECT_EQ(run("/usr/bin/" + name), nullptr) << name;
    }
    EXPECT_EQ(driver().effects(), Json::array());
}

TEST_F(Tools, LinksOfTheExecutableAreResolvedInsideTheDisk) {
    disk.tool("/opt/real/tool", R"(echo "$0")");
    disk.link("/usr/bin/tool", "/opt/real/tool");
    disk.link("/usr/local/bin", "/usr/bin");
    EXPECT_EQ(outputOf("/usr/bin/tool"), root() + "/opt/real/tool\n");
    EXPECT_EQ(outputOf("/usr/local/bin/tool"), root() + "/opt/real/tool\n");
}

TEST_F(Tools, ArgumentsArePassedAsTheyAre) {
    disk.tool("/usr/bin/show", R"(for word in "$@"; do printf '[%s]' "$word"; done)");
    EXPECT_EQ(outputOf("/usr/bin/show", {"/Users/sam", "a b", "", "*", "$HOME", "-n", "é\n"}),
              "[/Users/sam][a b][][*][$HOME][-n][é\n]");
    EXPECT_EQ(driver().effects("run"),
              Json::array({{"/usr/bin/show", "/Users/sam", "a b", "", "*", "$HOME", "-n", "é\n"}}));
}

TEST_F(Tools, FindTheFoldersOfTheDiskAheadOfTheOldPath) {
    disk.tool("/usr/bin/first", "echo \"$PATH\"; helper");
    disk.tool("/opt/homebrew/bin/helper", "echo brewed");
    disk.writeHost();
    DriverClient client(disk.folder(), {"PATH=/usr/bin:/bin:/old", "MORVANE_DISK=wrong"});
    const Json ran =
        client.call("runProcess", {{"executable", "/usr/bin/first"}, {"arguments", Json::array()}});
    EXPECT_EQ(ran.at("output"), root() + "/usr/bin:" + root() + "/usr/local/bin:" + root() +
                                    "/opt/homebrew/bin:/usr/bin:/bin:/old\nbrewed\n");
}

TEST_F(Tools, ReadNothingAndHoldNoOtherDescriptor) {
    disk.tool("/usr/bin/show", R"(readlink /proc/$$/fd/0
readlink /proc/$$/fd/2
for each in /proc/$$/fd/*; do readlink "$each"; done; true)");
    disk.text("/inherited", "");
    // Left open for the driver on purpose.
    const int inherited = ::open(disk.real("/inherited").c_str(), O_RDONLY);
    ASSERT_GE(inherited, 0);
    const std::string output = outputOf("/usr/bin/show");
    ::close(inherited);
    EXPECT_EQ(output.substr(0, 20), "/dev/null\n/dev/null\n");
    EXPECT_THAT(output, Not(HasSubstr("/inherited")));
    EXPECT_THAT(output, Not(HasSubstr("eventfd")));
    EXPECT_THAT(output, Not(HasSubstr("socket")));
    // The one pipe is the standard output.
    EXPECT_EQ(output.find("pipe:"), output.rfind("pipe:"));
}

TEST_F(Tools, LeadAGroupOfTheirOwn) {
    disk.tool("/usr/bin/group", R"(read -r pid name state parent group rest < /proc/$$/stat
[ "$group" = "$$" ] && echo leads)");
    EXPECT_EQ(outputOf("/usr/bin/group"), "leads\n");
}

TEST_F(Tools, GiveTheirStatusAndOutput) {
    disk.tool("/usr/bin/ends", "echo out; echo err >&2; exit 3");
    EXPECT_EQ(run("/usr/bin/ends"), Json({{"status", 3}, {"output", "out\n"}}));
    disk.tool("/usr/bin/killed", "kill -KILL $$");
    EXPECT_NE(run("/usr/bin/killed").at("status"), 0);
    disk.tool("/usr/bin/much", "head -c 3000000 /dev/zero | tr '\\0' x");
    EXPECT_EQ(outputOf("/usr/bin/much").size(), 3'000'000U);
    disk.tool("/usr/bin/bytes", R"(printf 'a\377b')");
    EXPECT_EQ(outputOf("/usr/bin/bytes"),
              "a\uFFFD"
              "b");
}

TEST_F(Tools, ThatHangAreEndedAtTheirLimitInRealTime) {
    disk.gate("gate");
    disk.tool("/usr/bin/hangs", R"(echo started; read line < "$MORVANE_DISK/gate")");
    const Json ran = driver().call(
        "runProcess",
        {{"executable", "/usr/bin/hangs"}, {"arguments", Json::array()}, {"limit", 0.3}});
    EXPECT_NE(ran.at("status"), 0);
    EXPECT_EQ(ran.at("output"), "started\n");
    driver().call("scanFiles", {{"force", true}});
    EXPECT_EQ(driver().get("filesScannedAt"), "2026-06-15T12:00:00.000Z");
}

TEST_F(Tools, ThatWriteForEverAreEndedAtTheirLimit) {
    disk.tool("/usr/bin/floods", "while :; do echo more; done");
    const Json ran = driver().call(
        "runProcess",
        {{"executable", "/usr/bin/floods"}, {"arguments", Json::array()}, {"limit", 0.3}});
    EXPECT_NE(ran.at("status"), 0);
}

TEST_F(Tools, ThatCannotBeAskedForAreRefused) {
    disk.tool("/usr/bin/show", "echo no");
    for (const Json& arguments :
         {Json({{"executable", "show"}, {"arguments", Json::array()}}),
          Json({{"executable", "/usr/bin/show"}}),
          Json({{"executable", "/usr/bin/show"}, {"arguments", "x"}}),
          Json({{"executable", "/usr/bin/show"}, {"arguments", Json::array()}, {"limit", -1}}),
          Json({{"executable", "/usr/bin/show"}, {"arguments", Json::array()}, {"limit", "1"}})}) {
        driver().error({{"call", "runProcess"}, {"args", arguments}});
    }
    EXPECT_EQ(driver().effects(), Json::array());
}

}  // namespace
}  // namespace morvane::test
