#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <plist/plist.h>
#include <set>
#include <sstream>

#include "support.h"

namespace morvane::sample::test {
namespace {

using nlohmann::json;

class Tools : public testing::Test {
protected:
    void SetUp() override { makeSmallDisk(disk()); }

    [[nodiscard]] std::filesystem::path disk() const { return folder_.path() / "disk"; }

    /// A tool as the program starts it: by its place, in the disk's "/".
    [[nodiscard]] Ending tool(const std::string& path, std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), disk() / "root" / path);
        return run(arguments, disk() / "root", disk());
    }

    [[nodiscard]] json runtimes() const {
        const Ending ending = tool("usr/bin/xcrun", {"simctl", "runtime", "list", "-j"});
        EXPECT_EQ(ending.status, 0) << ending.errors;
        return json::parse(ending.output);
    }

    /// What could be given back, by type.
    [[nodiscard]] std::map<std::string, std::string> reclaimable() const {
        const Ending ending =
            tool("usr/local/bin/docker", {"system", "df", "--format", "{{json .}}"});
        EXPECT_EQ(ending.status, 0) << ending.errors;
        std::map<std::string, std::string> rows;
        std::istringstream lines(ending.output);
        for (std::string line; std::getline(lines, line);) {
            const json row = json::parse(line);
            rows[row.at("Type")] = row.at("Reclaimable");
        }
        return rows;
    }

private:
    TemporaryFolder folder_;
};

using Rows = std::map<std::string, std::string>;

TEST_F(Tools, ListRuntimesOfAllPlatforms) {
    std::multiset<std::string> versions;
    const json all = runtimes();
    for (const auto& [key, runtime] : all.items()) {
        EXPECT_EQ(runtime.at("identifier"), key);
        versions.insert(runtime.value("platformIdentifier", "none") + " " +
                        runtime.value("version", "none"));
    }
    EXPECT_EQ(
        versions,
        (std::multiset<std::string>{
            "com.apple.platform.appletvsimulator 18.0", "com.apple.platform.iphonesimulator 17.10",
            "com.apple.platform.iphonesimulator 17.9", "com.apple.platform.iphonesimulator 26.0",
            "com.apple.platform.iphonesimulator 26.1", "com.apple.platform.watchsimulator 11.5",
            "com.apple.platform.watchsimulator 26.1", "com.apple.platform.xrsimulator 26.1",
            "none none"}));
}

TEST_F(Tools, DropADeletedRuntimeAndNoOther) {
    const json before = runtimes();
    for (const auto& [key, runtime] : before.items()) {
        if (!runtime.at("deletable")) {
            continue;
        }
        EXPECT_EQ(tool("usr/bin/xcrun", {"simctl", "runtime", "delete", key}).status, 0);
        EXPECT_FALSE(runtimes().contains(key));
    }
    const json left = runtimes();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left.begin()->at("version"), "18.0");
}

TEST_F(Tools, RefuseToDeleteARuntimeThatIsBundledOrNotThere) {
    const json before = runtimes();
    std::string bundled;
    for (const auto& [key, runtime] : before.items()) {
        bundled = runtime.at("deletable") ? bundled : key;
    }
    for (const std::string& id : {bundled, std::string("NOT-THERE"), std::string(""),
                                  bundled.substr(4), std::string(".*")}) {
        const Ending ending = tool("usr/bin/xcrun", {"simctl", "runtime", "delete", id});
        EXPECT_EQ(ending.status, 1) << id;
        EXPECT_FALSE(ending.errors.empty()) << id;
    }
    EXPECT_EQ(runtimes(), before);
}

TEST_F(Tools, GiveBackOneShareOfDockerAtATime) {
    EXPECT_EQ(reclaimable(), (Rows{{"Images", "14.85GB (69%)"},
                                   {"Containers", "946.2MB (74%)"},
                                   {"Local Volumes", "3.793GB (42%)"},
                                   {"Build Cache", "6.418GB"}}));
    EXPECT_EQ(tool("usr/local/bin/docker", {"image", "prune", "-a", "-f"}).status, 0);
    EXPECT_EQ(reclaimable(), (Rows{{"Images", "0B (0%)"},
                                   {"Containers", "946.2MB (74%)"},
                                   {"Local Volumes", "3.793GB (42%)"},
                                   {"Build Cache", "6.418GB"}}));
    EXPECT_EQ(tool("usr/local/bin/docker", {"builder", "prune", "-f"}).status, 0);
    EXPECT_EQ(reclaimable(), (Rows{{"Images", "0B (0%)"},
                                   {"Containers", "946.2MB (74%)"},
                                   {"Local Volumes", "3.793GB (42%)"},
                                   {"Build Cache", "0B"}}));
    EXPECT_EQ(tool("usr/local/bin/docker", {"container", "prune", "-f"}).status, 0);
    EXPECT_EQ(tool("usr/local/bin/docker", {"volume", "prune", "-a", "-f"}).status, 0);
    EXPECT_EQ(reclaimable(), (Rows{{"Images", "0B (0%)"},
                                   {"Containers", "0B (0%)"},
                                   {"Local Volumes", "0B (0%)"},
                                   {"Build Cache", "0B"}}));
}

TEST_F(Tools, UnloadAnAgentOnce) {
    const std::string agent = "/Users/sam/Library/LaunchAgents/net.tidewatch.Tidewatch.agent.plist";
    const auto state = disk() / "root/private/var/db/loaded-agents";
    EXPECT_NE(contentOf(state).find(agent), std::string::npos);
    EXPECT_EQ(tool("bin/launchctl", {"bootout", "gui/501", agent}).status, 0);
    EXPECT_EQ(contentOf(state).find(agent), std::string::npos);
    EXPECT_NE(contentOf(state).find("com.acme.editor.helper"), std::string::npos);
    EXPECT_EQ(tool("bin/launchctl", {"bootout", "gui/501", agent}).status, 3);
}

TEST_F(Tools, FindTheirStateWithoutTheVariableToo) {
    const auto root = disk() / "root";
    EXPECT_EQ(run({root / "usr/sbin/diskutil", "apfs", "list", "-plist"}, root),
              tool("usr/sbin/diskutil", {"apfs", "list", "-plist"}));
}

TEST_F(Tools, ListTheContainerOfTheStartupDisk) {
    const Ending ending = tool("usr/sbin/diskutil", {"apfs", "list", "-plist"});
    ASSERT_EQ(ending.status, 0);
    plist_t list = nullptr;
    plist_from_memory(ending.output.data(), static_cast<std::uint32_t>(ending.output.size()),
                      &list);
    ASSERT_NE(list, nullptr);
    plist_t containers = plist_dict_get_item(list, "Containers");
    ASSERT_EQ(plist_array_get_size(containers), 3U);
    plist_t container = plist_array_get_item(containers, 1);
    const char* const reference =
        plist_get_string_ptr(plist_dict_get_item(container, "ContainerReference"), nullptr);
    EXPECT_STREQ(reference, "disk3");
    EXPECT_EQ(plist_array_get_size(plist_dict_get_item(container, "Volumes")), 7U);
    plist_free(list);
}

TEST_F(Tools, RefuseWhatTheyDoNotKnow) {
    const auto before = treeOf(disk());
    for (const std::string& path :
         {std::string("usr/bin/xcrun"), std::string("usr/local/bin/docker"),
          std::string("usr/sbin/diskutil"), std::string("bin/launchctl")}) {
        for (const auto& arguments :
             {std::vector<std::string>{}, {"help"}, {"volume", "prune"}, {"bootout", "gui/501"}}) {
            const Ending ending = tool(path, arguments);
            EXPECT_EQ(ending.status, 64) << path;
            EXPECT_EQ(ending.output, "") << path;
            EXPECT_FALSE(ending.errors.empty()) << path;
        }
    }
    EXPECT_TRUE(treeOf(disk()) == before);
}

}  // namespace
}  // namespace morvane::sample::test
