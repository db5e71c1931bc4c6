// Sweeping: what goes, what stays, what is told.

#include "system/removal_disk.h"

namespace morvane::test {
namespace {

using Sweep = RemovalTest;

TEST_F(Sweep, OfItemsCorrectsTheListsInPlace) {
    disk.file(caches + "com.a.One/data", 8192);
    disk.file("/Users/sam/Downloads/Thing.dmg", 4096);
    scan();
    driver().set({{"selection", "sweep"}});
    driver().host({{"volume", {{"total", 9000}, {"available", 8000}}}});
    sweep({"caches"});
    EXPECT_EQ(all(driver().get("sweepItems"), "id"), Json::array({"otherInstallers"}));
    EXPECT_EQ(driver().get("sweepSelection"), Json::array());
    EXPECT_EQ(driver().get("selection"), "overview");
    EXPECT_EQ(driver().get("scanPhase"), "success");
    EXPECT_EQ(driver().get("freedMB"), 0.008192);
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_EQ(driver().get("lastSweptAt"), "2026-06-15T12:00:00.000Z");
    EXPECT_EQ(driver().get("lastSweptWords"), "Last swept today");
    EXPECT_EQ(driver().get("disk").at("freeBytes"), 8000);
    EXPECT_EQ(entry().at("summary"), "1 item · 8 KB");
    EXPECT_EQ(entry().at("restored"), false);
    EXPECT_EQ(state(), "restorable");
    driver().call("settleScanPhase");
    EXPECT_EQ(driver().get("scanPhase"), "done");
}

TEST_F(Sweep, TakesEachItemOnceInTheOrderGiven) {
    docker("echo image >> \"$MORVANE_DISK/order\"");
    driver().call("startScan", {{"showOverview", true}});
    driver().effects();
    sweep({"docker:build", "docker:images", "docker:build"});
    EXPECT_EQ(driver().effects("run"),
              Json::parse(R"([["/usr/local/bin/docker","builder","prune","-f"],
                              ["/usr/local/bin/docker","image","prune","-a","-f"]])"));
    EXPECT_EQ(entry().at("summary"), "2 items · 3.0 GB");
    EXPECT_EQ(driver().get("devSections"), Json::array());
}

TEST_F(Sweep, OfCommandsAloneIsRecordedAsDeleted) {
    docker("exit 0");
    scan();
    sweep({"docker:images"});
    EXPECT_EQ(entry().at("trashed"), Json::object());
    EXPECT_EQ(state(), "deleted");
    EXPECT_FALSE(disk.has("/Users/sam/.Trash"));
}

TEST_F(Sweep, AFailedCommandKeepsItsItemChosen) {
    docker("exit 1");
    scan();
    sweep({"docker:images"});
    EXPECT_EQ(driver().get("sweepProblem"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_EQ(all(driver().get("devItems"), "id"), Json::array({"docker:images", "docker:build"}));
    EXPECT_EQ(driver().get("devSelection"), Json::array({"docker:build", "docker:images"}));
    EXPECT_EQ(driver().get("history"), Json::array());
    EXPECT_EQ(driver().get("scanPhase"), "done");
    sweep({"docker:images", "docker:build"});
    EXPECT_EQ(driver().get("sweepProblem"), "1 item couldn’t be removed. They may be in use.");
    EXPECT_EQ(driver().get("scanPhase"), "success");
    disk.remove("/usr/local/bin/docker");
    sweep({"docker:images"});
    EXPECT_EQ(driver().get("sweepProblem"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
}

TEST_F(Sweep, OfOneOfTwoPartsLeavesTheOther) {
    disk.file(caches + "com.a.One/data", 8192);
    disk.file(caches + "com.a.Two/data", 4096);
    scan();
    driver().host({{"immovable", {caches + "com.a.Two"}}});
    sweep({"caches"});
    const Json item = driver().get("crumbItems").at(0);
    EXPECT_EQ(item.at("bytes"), 4096);
    EXPECT_EQ(pathsOf(item), Json::array({caches + "com.a.Two"}));
    EXPECT_EQ(item.at("location"), "~/Library/Caches · 2 apps");
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"caches"}));
    EXPECT_EQ(driver().get("freedMB"), 0.008192);
    EXPECT_EQ(entry().at("summary"), "1 item · 8 KB");
    EXPECT_EQ(driver().get("sweepProblem"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
}

TEST_F(Sweep, WithTheTrashSwitchedOffDeletes) {
    disk.file(caches + "com.a.One/data", 8192);
    disk.file(caches + "com.a.Two/data", 4096);
    disk.file(caches + "com.a.Three/data", 4096);
    disk.host["immovable"] = {caches + "com.a.Two"};
    scan();
    driver().set({{"alwaysUseTrash", false}});
    sweep({"caches"});
    EXPECT_EQ(disk.names(caches), std::vector<std::string>{"com.a.Two"});
    EXPECT_FALSE(disk.has("/Users/sam/.Trash"));
    EXPECT_EQ(state(), "deleted");
}

TEST_F(Sweep, AnItemThatVanishedCountsAsFreed) {
    disk.file(caches + "com.a.One/data", 8192);
    scan();
    disk.remove(caches + "com.a.One");
    sweep({"caches"});
    EXPECT_EQ(entry().at("summary"), "1 item · 8 KB");
    EXPECT_EQ(entry().at("trashed"), Json::object());
}

TEST_F(Sweep, AFolderSwappedForAnotherIsLeftAlone) {
    disk.file(caches + "com.a.One/data", 8192);
    scan();
    // The folder that held the item is another one by now.
    std::filesystem::rename(disk.real("/Users/sam/Library/Caches"),
                            disk.real("/Users/sam/Library/Old"));
    disk.file(caches + "com.a.One/precious", 4096);
    sweep({"caches"});
    EXPECT_TRUE(disk.has(caches + "com.a.One/precious"));
    EXPECT_TRUE(disk.has("/Users/sam/Library/Old/com.a.One/data"));
    EXPECT_EQ(driver().get("history"), Json::array());
}

TEST_F(Sweep, FromTheMenuBarTakesTheSafeItemsAndCanBeUndone) {
    disk.file(caches + "com.a.One/data", 8192);
    disk.file("/Users/sam/Downloads/Thing.dmg", 4096);
    scan();
    driver().set({{"sweepSelection", {"otherInstallers"}}, {"selection", "settings"}});
    driver().call("sweepFromMenuBar");
    EXPECT_EQ(driver().get("menuBarPhase"), "done");
    EXPECT_EQ(driver().get("menuBarSweptMB"), 0.008192);
    EXPECT_EQ(driver().get("menuBarTrashed"),
              Json({{caches + "com.a.One", "/Users/sam/.Trash/com.a.One"}}));
    EXPECT_EQ(driver().get("freedMB"), 0.0);
    EXPECT_EQ(driver().get("selection"), "settings");
    EXPECT_TRUE(disk.has("/Users/sam/Downloads/Thing.dmg"));
    driver().call("undoMenuBarSweep");
    EXPECT_EQ(driver().get("menuBarPhase"), "idle");
    EXPECT_EQ(driver().get("menuBarSweptMB"), 0.0);
    EXPECT_EQ(driver().get("menuBarTrashed"), Json::object());
    EXPECT_TRUE(disk.has(caches + "com.a.One/data"));
    EXPECT_EQ(state(), "putBack");
    EXPECT_EQ(entry().at("trashed").size(), 1U);
    // The crumbs are looked for again.
    EXPECT_EQ(all(driver().get("sweepItems"), "id"), Json::array({"caches", "otherInstallers"}));
}

TEST_F(Sweep, FromTheMenuBarThatMovesNothingReturnsToIdle) {
    disk.file(caches + "com.a.One/data", 8192);
    disk.host["immovable"] = {caches + "com.a.One"};
    scan();
    driver().call("sweepFromMenuBar");
    EXPECT_EQ(driver().get("menuBarPhase"), "idle");
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_EQ(driver().get("history"), Json::array());
}

TEST_F(Sweep, ASecondSweepIsKeptOutWhileOneRuns) {
    disk.gate("gate");
    docker(R"(read line < "$MORVANE_DISK/gate")");
    disk.file(caches + "com.a.One/data", 8192);
    scan();
    driver().begin("sweep", {{"items", {"docker:images"}}});
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(driver().get("isSweeping"), true);
    sweep({"caches"});
    driver().call("sweepFromMenuBar");
    EXPECT_TRUE(disk.has(caches + "com.a.One/data"));
    EXPECT_EQ(driver().get("menuBarPhase"), "idle");
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(driver().get("isSweeping"), false);
    EXPECT_EQ(driver().get("history").size(), 1U);
}

}  // namespace
}  // namespace morvane::test
