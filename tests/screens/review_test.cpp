// What stands on the review: its groups, its rows, its footer.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

class Review : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        CleanupItem caches = trashItem("caches", Safety::safe, 3'000'000);
        caches.name = "App caches";
        caches.location = "~/Library/Caches · 2 apps";
        caches.explanation = "Apps rebuild these.";
        caches.revealURL = "/Users/sam/Library/Caches";
        CleanupItem logs = trashItem("logs", Safety::regenerates, 2'000'000);
        CleanupItem gone = trashItem("leftover:com.gone.App", Safety::review, 7'000'000);
        gone.location = "~/Library/Preferences";
        state->crumbItems = {caches, logs};
        state->leftoverItems = {gone};
        state->sweepSelection = {"caches", "logs"};
        state->scanPhase = ScanPhase::done;
        state->scannedAt = system.now;
    }
    [[nodiscard]] Json shown() { return screen("sweepReview"); }
    [[nodiscard]] Json group(std::size_t index) { return shown().at("groups").at(index); }
    [[nodiscard]] Json row(std::size_t group, std::size_t index) {
        return shown().at("groups").at(group).at("rows").at(index);
    }
    [[nodiscard]] Json selectedPreset() { return shown().at("preset").at("selected"); }
    [[nodiscard]] Json footer() { return shown().at("footer"); }
    void clear() {
        for (auto* list : {&state->crumbItems, &state->leftoverItems}) {
            *list = std::vector<CleanupItem>{};
        }
        state->sweepSelection = Ids{};
    }
};

TEST_F(Review, TellsEveryGroupAndRow) {
    EXPECT_EQ(
        shown(),
        (Json{{"title", "Sweep"},
              {"found", "12 MB found"},
              {"preset", Json::parse(R"({
        "label": null, "options": ["Safe items", "All", "None"], "selected": 0})")},
              {"message", nullptr},
              {"groups", Json::parse(R"([
        {"id": "System Crumbs", "label": "System Crumbs", "symbol": "sparkles", "state": "on",
         "count": "2 items", "size": "5 MB", "rows": [
            {"id": "caches", "label": "App caches", "state": "on",
             "badge": {"label": "Safe to sweep", "fill": "safeFill", "ink": "safeInk"},
             "size": "3 MB", "open": false, "panel": null},
            {"id": "logs", "label": "logs", "state": "on",
             "badge": {"label": "Will regenerate", "fill": "regenFill", "ink": "regenInk"},
             "size": "2 MB", "open": false, "panel": null}]},
        {"id": "App Leftovers", "label": "App Leftovers", "symbol": "shippingbox",
         "state": "off", "count": "1 item", "size": "7 MB", "rows": [
            {"id": "leftover:com.gone.App", "label": "leftover:com.gone.App", "state": "off",
             "badge": {"label": "Review first", "fill": "reviewFill", "ink": "reviewInk"},
             "size": "7 MB", "open": false, "panel": null}]}])")},
              {"footer",
               {{"size", "5 MB"},
                {"count", "2 items selected"},
                {"note", "Goes to the Trash. Nothing is permanently deleted."},
                {"actions",
                 {button("Move to Trash", {{"symbol", "trash"}, {"kind", "prominent"}})}}}}}));
}

TEST_F(Review, NamesAllFourGroupsInTheirOrder) {
    const CleanupItem item = trashItem("one", Safety::review, 1);
    state->downloadItems = {item};
    state->backupItems = {item};
    Texts told;
    const Json all = shown();
    for (const Json& group : all.at("groups")) {
        told.push_back(group.at("label").get<std::string>() + " " +
                       group.at("symbol").get<std::string>());
    }
    EXPECT_THAT(told, ElementsAre("System Crumbs sparkles", "Downloads arrow.down.to.line",
                                  "App Leftovers shippingbox", "iPhone Backups iphone"));
}

TEST_F(Review, ShowsThePresetThatTheSelectionIs) {
    EXPECT_EQ(selectedPreset(), 0);
    state->sweepSelection = {"caches", "logs", "leftover:com.gone.App"};
    EXPECT_EQ(selectedPreset(), 1);
    state->sweepSelection = Ids{};
    EXPECT_EQ(selectedPreset(), 2);
}

TEST_F(Review, OneRowLessThanTheSafeItemsIsNoPresetAndMakesTheGroupMixed) {
    EXPECT_EQ(selectedPreset(), 0);
    press("sweepReview", "groups.rows.state", "logs");
    EXPECT_EQ(selectedPreset(), nullptr);
    EXPECT_EQ(group(0).at("state"), "mixed");
    EXPECT_EQ(row(0, 0).at("state"), "on");
    EXPECT_EQ(row(0, 1).at("state"), "off");
    EXPECT_EQ(footer().at("count"), "1 item selected");
    EXPECT_EQ(footer().at("size"), "3 MB");
}

TEST_F(Review, AnOpenRowTellsOfItsItem) {
    state->expandedSweepItems = {"caches"};
    EXPECT_EQ(row(0, 0).at("open"), true);
    EXPECT_EQ(row(0, 0).at("panel"), (Json{{"title", "What is this?"},
                                           {"text", "Apps rebuild these."},
                                           {"location", "~/Library/Caches · 2 apps"},
                                           {"reveal", button("Reveal in Finder")}}));
    EXPECT_EQ(row(0, 1).at("panel"), nullptr);
}

TEST_F(Review, AnItemWithoutAPlaceToRevealStillTellsItsLocation) {
    state->expandedSweepItems = {"leftover:com.gone.App"};
    EXPECT_EQ(row(1, 0).at("panel"), (Json{{"title", "What is this?"},
                                           {"text", ""},
                                           {"location", "~/Library/Preferences"},
                                           {"reveal", nullptr}}));
    refusal("sweepReview", "groups.rows.panel.reveal", "leftover:com.gone.App");
}

TEST_F(Review, ARowStaysOpenWhileTheUserIsElsewhere) {
    press("sweepReview", "groups.rows.open", "caches");
    press("sidebar", "settings");
    press("sidebar", "sections.rows", "sweep");
    EXPECT_EQ(row(0, 0).at("open"), true);
}

TEST_F(Review, WithoutFindingsSaysSoOrThatItIsLooking) {
    clear();
    EXPECT_EQ(shown().at("message"), "Nothing to sweep right now.");
    EXPECT_EQ(shown().at("groups"), Json::array());
    EXPECT_EQ(shown().at("found"), "1 KB found");
    EXPECT_EQ(selectedPreset(), 2);
    for (const ScanPhase phase : {ScanPhase::idle, ScanPhase::success, ScanPhase::empty}) {
        state->scanPhase = phase;
        EXPECT_EQ(shown().at("message"), "Nothing to sweep right now.");
    }
    state->scanPhase = ScanPhase::scanning;
    EXPECT_EQ(shown().at("message"), "Looking for things to sweep…");
}

TEST_F(Review, ShowsWhatThereIsWhileAScanRuns) {
    state->scanPhase = ScanPhase::scanning;
    EXPECT_EQ(shown().at("message"), nullptr);
    EXPECT_EQ(shown().at("groups").size(), 2U);
}

TEST_F(Review, WithNothingSelectedTheFooterKeepsTheSmallestSizeAndCannotBePressed) {
    state->sweepSelection = Ids{};
    EXPECT_EQ(footer().at("size"), "1 KB");
    EXPECT_EQ(footer().at("count"), "0 items selected");
    EXPECT_EQ(footer().at("actions").at(0).at("enabled"), false);
    EXPECT_EQ(refusal("sweepReview", "footer.actions", "0"),
              "the control \"footer.actions\" is not enabled");
}

TEST_F(Review, CountsNothingThatIsNotThere) {
    state->sweepSelection = {"caches", "gone long ago"};
    EXPECT_EQ(footer().at("count"), "1 item selected");
    EXPECT_EQ(footer().at("size"), "3 MB");
}

TEST_F(Review, TheFooterAndTheGroupsDifferByWhatIsUnselectedAlone) {
    state->sweepSelection = {"caches", "leftover:com.gone.App"};
    EXPECT_EQ(footer().at("size"), "10 MB");
    EXPECT_EQ(group(0).at("size"), "5 MB");
    EXPECT_EQ(group(1).at("size"), "7 MB");
}

TEST_F(Review, WithoutTheTrashSaysThatItDeletes) {
    press("settings", "sweeping.trash", {}, false);
    EXPECT_EQ(footer().at("note"), "Deleted right away. This can’t be undone.");
    EXPECT_EQ(footer().at("actions").at(0),
              button("Delete", {{"symbol", "trash"}, {"kind", "prominent"}}));
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
}

TEST_F(Review, AProblemStandsInTheNotesPlaceUntilAScanClearsIt) {
    state->sweepProblem = "1 item couldn’t be removed. They may be in use.";
    EXPECT_EQ(footer().at("note"), "1 item couldn’t be removed. They may be in use.");
    state->alwaysUseTrash = false;
    EXPECT_EQ(footer().at("note"), "1 item couldn’t be removed. They may be in use.");
    state->startScan(false);
    EXPECT_EQ(footer().at("note"), "Deleted right away. This can’t be undone.");
}

TEST_F(Review, IsBusyWhileASweepRuns) {
    state->isSweeping = true;
    EXPECT_EQ(
        footer().at("actions").at(0),
        button("Move to Trash",
               {{"symbol", "trash"}, {"kind", "prominent"}, {"enabled", false}, {"busy", true}}));
    refusal("sweepReview", "footer.actions", "0");
}

}  // namespace
}  // namespace morvane::screens
