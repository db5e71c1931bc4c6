// Whole sessions on a realistic disk: everything goes and comes back, or goes for good.

#include "support/tree_snapshot.h"
#include "system/system_test.h"

namespace morvane::test {
namespace {

const std::string defaultsFile = "/Users/sam/Library/Preferences/app.morvane.Morvane.plist";

class Session : public testing::Test {
protected:
    void makeDisk(const std::string& size) {
        std::filesystem::remove_all(disk.folder() / "root");
        RunningProgram maker({MORVANE_SAMPLE_DISK, disk.folder() / "made", "--size", size, "--now",
                              "2026-06-15T12:00:00Z"});
        ASSERT_EQ(maker.end(), 0) << maker.errors();
        for (const std::string name : {"root", "host.json"}) {
            std::filesystem::rename(disk.folder() / "made" / name, disk.folder() / name);
        }
    }
    void addLargeFiles() {
        disk.file("/Users/sam/Movies/Extra film.mov", 101'000'000, 500);
        disk.file("/Users/sam/Documents/Extra.utm/disk.qcow2", 102'000'000, 200);
    }
    // What a session must leave as it was. A folder's own date moves when something in it goes and
    // comes back; agents that were unloaded are the tool's business.
    [[nodiscard]] TreeSnapshot tree() const {
        TreeSnapshot taken = without(takeSnapshot(disk.folder() / "root"), defaultsFile);
        taken.erase("/private/var/db/loaded-agents");
        for (auto& [path, item] : taken) {
            if (item.kind == 'd') item.modified = 0;
        }
        return taken;
    }

    DriverClient& driver() {
        if (!driver_) driver_ = std::make_unique<DriverClient>(disk.folder());
        return *driver_;
    }
    void scan() { driver().call("startScan", {{"showOverview", true}}); }
    Json devItems(const std::string& action) {
        Json ids = Json::array();
        for (const Json& item : driver().get("devItems")) {
            if (item.at("action").contains(action)) ids.push_back(item.at("id"));
        }
        return ids;
    }
    void sweepEverything() {
        driver().call("applyPreset", {{"preset", "all"}});
        const Json ids = driver().get("sweepSelection");
        ASSERT_GT(ids.size(), 10U);
        driver().call("sweep", {{"items", ids}});
        EXPECT_EQ(driver().get("sweepProblem"), nullptr);
        EXPECT_EQ(driver().get("sweepItems"), Json::array());
    }
    void sweepDeveloperFolders() {
        const Json ids = devItems("trash");
        ASSERT_GT(ids.size(), 10U);
        driver().call("sweep", {{"items", ids}, {"label", "Developer sweep"}});
        EXPECT_EQ(driver().get("sweepProblem"), nullptr);
        EXPECT_EQ(devItems("trash"), Json::array());
    }
    // Those with the most parts, that are not running.
    void uninstallThree() {
        driver().call("scanApps", {{"force", true}});
        std::vector<Json> apps = driver().get("apps");
        std::erase_if(apps, [](const Json& app) { return app.at("bundleID").is_null(); });
        std::stable_sort(apps.begin(), apps.end(), [](const Json& one, const Json& other) {
            return one.at("parts").size() > other.at("parts").size();
        });
        driver().host({{"runningApplications", nullptr}});
        for (std::size_t index = 0; index < 3; ++index) {
            driver().call("uninstall", {{"app", apps.at(index).at("url")}});
            EXPECT_TRUE(driver().get("uninstallResult").contains("removed"))
                << driver().get("uninstallResult");
            EXPECT_FALSE(disk.has(apps.at(index).at("url")));
        }
    }
    void trashLargeFiles() {
        driver().call("scanFiles", {{"force", true}});
        driver().set({{"fileMinMB", 0.0}, {"fileSelection", all(driver().get("files"), "url")}});
        ASSERT_GE(driver().get("selectedFiles").size(), 2U);
        driver().call("trashSelectedFiles");
        EXPECT_TRUE(driver().get("fileResult").contains("removed")) << driver().get("fileResult");
    }
    void putEverythingBack() {
        for (const Json& entry : driver().get("history")) {
            if (!entry.at("restored")) driver().call("restore", {{"entry", entry.at("id")}});
        }
        EXPECT_EQ(driver().get("restoreProblem"), Json::object());
        const Json states = driver().get("historyStates");
        for (const auto& [id, state] : states.items()) EXPECT_EQ(state, "putBack");
    }

    TestDisk disk;

private:
    std::unique_ptr<DriverClient> driver_;
};

TEST_F(Session, EverythingThatWentComesBackAsItWas) {
    makeDisk("200M");
    addLargeFiles();
    const TreeSnapshot before = tree();
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "done");
    sweepEverything();
    EXPECT_GT(disk.names("/Users/sam/.Trash").size(), 50U);
    putEverythingBack();

    scan();
    sweepDeveloperFolders();
    driver().call("sweepFromMenuBar");
    EXPECT_EQ(driver().get("menuBarPhase"), "done");
    uninstallThree();
    trashLargeFiles();
    driver().call("undoMenuBarSweep");
    putEverythingBack();
    EXPECT_EQ(driver().end(), 0);
    EXPECT_EQ(differences(before, tree()), "");
}

TEST_F(Session, EverythingComesBackAfterARestartInAnyOrder) {
    makeDisk("1G");
    const TreeSnapshot before = tree();
    scan();
    sweepEverything();
    sweepDeveloperFolders();
    uninstallThree();
    trashLargeFiles();
    EXPECT_EQ(driver().get("history").size(), 6U);
    driver().call("relaunch");
    Json entries = driver().get("history");
    std::reverse(entries.begin(), entries.end());
    for (const Json& entry : entries) driver().call("restore", {{"entry", entry.at("id")}});
    EXPECT_EQ(driver().get("restoreProblem"), Json::object());
    EXPECT_EQ(differences(before, tree()), "");
}

TEST_F(Session, RuntimesAndDockerForgetWhatWasSwept) {
    makeDisk("200M");
    const std::string runtimes = disk.content("/private/var/db/simulator-runtimes");
    const std::string usage = disk.content("/private/var/db/docker-usage");
    const TreeSnapshot before = tree();
    scan();
    const Json ids = devItems("command");
    ASSERT_GE(ids.size(), 4U);
    driver().effects();
    driver().call("sweep", {{"items", ids}, {"label", "Developer sweep"}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_EQ(driver().effects("run").size(), ids.size());
    EXPECT_EQ(devItems("command"), Json::array());
    const Json history = driver().get("history");
    ASSERT_EQ(history.size(), 1U);
    EXPECT_EQ(history.at(0).at("trashed"), Json::object());
    EXPECT_EQ(driver().get("historyStates").at(history.at(0).at("id").get<std::string>()),
              "deleted");
    EXPECT_NE(disk.content("/private/var/db/simulator-runtimes"), runtimes);
    EXPECT_NE(disk.content("/private/var/db/docker-usage"), usage);
    scan();
    EXPECT_EQ(devItems("command"), Json::array());
    // Nothing else was touched.
    TreeSnapshot expected = before;
    TreeSnapshot now = tree();
    for (const std::string state : {"simulator-runtimes", "docker-usage"}) {
        expected.erase("/private/var/db/" + state);
        now.erase("/private/var/db/" + state);
    }
    EXPECT_EQ(differences(expected, now), "");
}

}  // namespace
}  // namespace morvane::test
