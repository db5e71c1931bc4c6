// The whole main job by presses alone.

#include "support/tree_snapshot.h"
#include "system/screen_disk.h"

namespace morvane::test {
namespace {

using MainJob = OnScreen;

// The user's files, without the Trash and the program's own settings; when a folder was last
// written to is left out, since items go and come back.
TreeSnapshot usersTree(const TestDisk& disk) {
    TreeSnapshot tree = takeSnapshot(disk.real(""));
    tree = without(std::move(tree), "/Users/sam/.Trash");
    tree = without(std::move(tree), "/Users/sam/Library/Preferences");
    for (auto& [path, item] : tree) {
        if (item.kind == 'd') item.modified = 0;
    }
    return tree;
}

TEST_F(MainJob, SweepsWhatWasChosenAndPutsItBack) {
    fillDisk();
    driver().call("finishOnboarding");
    const TreeSnapshot before = usersTree(disk);

    EXPECT_EQ(card().at("kind"), "idle");
    press("overview", "card.button");
    EXPECT_EQ(card().at("kind"), "done");
    EXPECT_EQ(card().at("title"), "5 MB is safe to sweep right now");
    EXPECT_EQ(card().at("text"),
              "Another 5 MB is worth a look. Nothing is removed until you choose.");
    press("overview", "card.review");
    EXPECT_EQ(screen("shell").at("windowTitle"), "Sweep");
    EXPECT_EQ(screen("sweepReview").at("found"), "10 MB found");

    press("sweepReview", "groups.rows.open", "caches");
    const Json open = screen("sweepReview").at("groups").at(0).at("rows").at(0);
    EXPECT_EQ(open.at("id"), "caches");
    EXPECT_EQ(open.at("panel").at("location"), "~/Library/Caches · 2 apps");
    press("sweepReview", "groups.rows.panel.reveal", "caches");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"reveal": ["/Users/sam/Library/Caches"]}])"));
    press("sweepReview", "groups.rows.state", "logs");
    EXPECT_EQ(screen("sweepReview").at("groups").at(0).at("state"), "mixed");
    EXPECT_EQ(screen("sweepReview").at("footer").at("count"), "1 item selected");

    press("sweepReview", "footer.actions", 0);
    EXPECT_EQ(screen("shell").at("windowTitle"), "Overview");
    EXPECT_EQ(card().at("title"), "All swept! You freed 3 MB");
    EXPECT_FALSE(disk.has(caches + "Acme"));
    EXPECT_FALSE(disk.has(caches + "Bolt"));
    EXPECT_TRUE(disk.has("/Users/sam/Library/Logs/old.log"));
    EXPECT_TRUE(disk.has("/Users/sam/Downloads/Thing.dmg"));
    EXPECT_EQ(driver().effects(), Json::array());
    press("overview", "card.openTrash");
    EXPECT_EQ(driver().effects(), Json::parse(R"([{"open": ["/Users/sam/.Trash"]}])"));
    press("overview", "card.button");
    EXPECT_EQ(card().at("title"), "2 MB is safe to sweep right now");

    press("sidebar", "settings");
    appear("settings");
    const Json entry = screen("settings").at("history").at("rows").at(0);
    EXPECT_EQ(entry.at("date").get<std::string>().substr(0, 12), "Today, 12:00");
    EXPECT_EQ(entry.at("summary"), "1 item · 3 MB");
    press("settings", "history.rows.restore", entry.at("id"));
    EXPECT_EQ(screen("settings").at("history").at("rows").at(0).at("words"), "Put back");
    EXPECT_EQ(differences(before, usersTree(disk)), "");
    EXPECT_EQ(disk.names("/Users/sam/.Trash"), std::vector<std::string>{});
    EXPECT_EQ(endDriver(), 0);
}

TEST_F(MainJob, EndsSpotlessWhenEverythingWent) {
    fillDisk();
    press("overview", "card.button");
    press("sweepReview", "preset", nullptr, 1);
    EXPECT_EQ(screen("sweepReview").at("preset").at("selected"), 1);
    press("sweepReview", "footer.actions", "0");
    press("overview", "card.button");
    EXPECT_EQ(card().at("kind"), "empty");
    EXPECT_EQ(screen("sweepReview").at("message"), "Nothing to sweep right now.");
}

TEST_F(MainJob, WithoutTheTrashDeletesAndOffersNothingBack) {
    disk.file(caches + "Bolt/data", 3'000'000);
    press("settings", "sweeping.trash", nullptr, false);
    press("overview", "card.button");
    EXPECT_EQ(screen("sweepReview").at("footer").at("note"),
              "Deleted right away. This can’t be undone.");
    EXPECT_EQ(screen("sweepReview").at("footer").at("actions").at(0).at("label"), "Delete");
    press("sweepReview", "footer.actions", 0);
    EXPECT_EQ(card().at("text"), "Everything was deleted right away.");
    EXPECT_EQ(card().at("openTrash"), nullptr);
    EXPECT_FALSE(disk.has("/Users/sam/.Trash"));
    const Json entry = screen("settings").at("history").at("rows").at(0);
    EXPECT_EQ(entry.at("words"), "Deleted right away");
    driver().error(pressing("settings", "history.rows.restore", entry.at("id")));
}

TEST_F(MainJob, WhatCannotGoIsToldUntilTheNextScan) {
    disk.file(caches + "Bolt/data", 3'000'000);
    disk.host["immovable"] = {caches + "Bolt"};
    press("overview", "card.button");
    press("sweepReview", "footer.actions", 0);
    EXPECT_EQ(screen("sweepReview").at("footer").at("note"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_EQ(card().at("kind"), "done");
    press("overview", "card.scanAgain");
    EXPECT_EQ(screen("sweepReview").at("footer").at("note"),
              "Goes to the Trash. Nothing is permanently deleted.");
}

}  // namespace
}  // namespace morvane::test
