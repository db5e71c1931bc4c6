// The words of the card for each phase of a scan.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

using enum PermissionStatus;

class OverviewCards : public ScreenTest {
protected:
    [[nodiscard]] Json card() { return screen("overview").at("card"); }
    [[nodiscard]] Json card(ScanPhase phase) {
        state->scanPhase = phase;
        return card();
    }
    // What the scanning card says of each category, in order.
    [[nodiscard]] Texts values() {
        Texts values;
        const Json rows = card().at("rows");
        for (const Json& row : rows) values.push_back(row.at("value"));
        return values;
    }
    [[nodiscard]] LargeFile oldFile(std::int64_t bytes) const {
        return {.url = "/x/film", .bytes = bytes, .since = system.now - 24h * 400};
    }
};

TEST_F(OverviewCards, NameTheScreenAndTheLastSweep) {
    EXPECT_EQ(screen("overview").at("title"), "Overview");
    EXPECT_EQ(screen("overview").at("lastSwept"), "Not swept yet");
    state->lastSweptAt = system.now - 24h * 3;
    EXPECT_EQ(screen("overview").at("lastSwept"), "Last swept 3 days ago");
}

TEST_F(OverviewCards, IdleInvites) {
    EXPECT_EQ(
        card(),
        (Json{{"kind", "idle"},
              {"title", "Ready for a tidy-up?"},
              {"text",
               "Morvane looks for caches, leftovers and forgotten files, then explains "
               "each one. Nothing is removed until you say so."},
              {"button",
               button("Sweep", {{"symbol", "morvane"}, {"kind", "prominent"}, {"key", "Return"}})},
              {"foot", "Usually takes under a minute."}}));
}

TEST_F(OverviewCards, ScanningFillsCategoryByCategory) {
    state->crumbItems = {trashItem("one", Safety::safe, 3'000'000)};
    state->downloadItems = {trashItem("two", Safety::review, 2'000'000)};
    state->leftoverItems = {trashItem("three", Safety::review, 9'000'000)};
    state->scanLocation = "~/Library/Logs";
    state->finishedCategories = {ScanCategory::crumbs, ScanCategory::backups};
    EXPECT_EQ(card(ScanPhase::scanning), (Json{{"kind", "scanning"},
                                               {"title", "Sweeping through your Mac…"},
                                               {"amount", "5 MB"},
                                               {"text", "found so far. Nothing has been touched."},
                                               {"fraction", 0.4},
                                               {"location", "~/Library/Logs"},
                                               {"rows", Json::parse(R"([
        {"id": "crumbs", "label": "System crumbs", "finished": true, "value": "5 MB"},
        {"id": "developer", "label": "Developer files", "finished": false, "value": "Looking…"},
        {"id": "leftovers", "label": "App leftovers", "finished": false, "value": "Looking…"},
        {"id": "largeFiles", "label": "Large & old files", "finished": false,
         "value": "Looking…"},
        {"id": "backups", "label": "iPhone backups", "finished": true, "value": "1 KB"}])")},
                                               {"button", button("Stop", {{"key", "Escape"}})}}));
}

TEST_F(OverviewCards, ScanningIsEmptyAtFirstAndFullAtTheEnd) {
    EXPECT_EQ(card(ScanPhase::scanning).at("fraction"), 0.0);
    EXPECT_EQ(card().at("amount"), "1 KB");
    state->finishedCategories = {ScanCategory::crumbs, ScanCategory::developer,
                                 ScanCategory::leftovers, ScanCategory::largeFiles,
                                 ScanCategory::backups};
    EXPECT_EQ(card().at("fraction"), 1.0);
    EXPECT_THAT(values(), ElementsAre("1 KB", "1 KB", "1 KB", "1 KB", "1 KB"));
}

TEST_F(OverviewCards, ScanningLooksForBackupsBeforeItSaysThatTheyNeedAccess) {
    setAccess(denied);
    state->scanPhase = ScanPhase::scanning;
    EXPECT_EQ(values().at(4), "Looking…");
    state->finishedCategories = {ScanCategory::backups};
    EXPECT_EQ(values().at(4), "Needs access");
    EXPECT_EQ(values().at(0), "Looking…");
    setAccess(granted);
    EXPECT_EQ(values().at(4), "1 KB");
}

TEST_F(OverviewCards, DoneTellsWhatIsSafeAndWhatIsWorthALook) {
    state->crumbItems = {trashItem("one", Safety::safe, 3'000'000),
                         trashItem("two", Safety::regenerates, 2'000'000)};
    state->devSections = {{devSection("xcode", {trashItem("dev", Safety::safe, 4'000'000)})}};
    state->files = {oldFile(1'000'000'000)};
    const Json done = card(ScanPhase::done);
    EXPECT_EQ(done.at("title"), "5 MB is safe to sweep right now");
    EXPECT_EQ(done.at("text"),
              "Another 1.0 GB is worth a look. Nothing is removed until you choose.");
    EXPECT_EQ(done.at("scanAgain"), button("Scan Again"));
    EXPECT_EQ(done.at("review"),
              button("Review & Sweep", {{"kind", "prominent"}, {"key", "Return"}}));
    EXPECT_EQ(done.at("leftAlone"), Json::parse(R"({
        "symbol": "checkmark.shield",
        "title": "What Morvane leaves alone",
        "text": "Your documents, photos, music and mail are never pre-selected. They only appear in Large Files, and only you can pick them."})"));
    EXPECT_EQ(done.at("cards"), Json::parse(R"([
        {"id": "crumbs", "label": "System Crumbs", "symbol": "sparkles", "amount": "5 MB",
         "text": "Caches, old logs and installers apps rebuild or no longer need.",
         "call": "Review"},
        {"id": "developer", "label": "Developer Junk",
         "symbol": "chevron.left.forwardslash.chevron.right", "amount": "4 MB",
         "text": "Xcode builds, old simulators, package caches and Docker images.",
         "call": "Review"},
        {"id": "leftovers", "label": "App Leftovers", "symbol": "shippingbox", "amount": "1 KB",
         "text": "No files left behind by apps you’ve deleted.", "call": "Review"},
        {"id": "largeFiles", "label": "Large & Old Files", "symbol": "doc.text",
         "amount": "1.0 GB",
         "text": "Big files you haven’t opened in over a year. Only you decide.",
         "call": "Review"},
        {"id": "backups", "label": "iPhone Backups", "symbol": "iphone", "amount": "1 KB",
         "text": "No iPhone or iPad backups on this Mac.", "call": "Review"}])"));
}

TEST_F(OverviewCards, DoneWithoutAnythingSafeSaysSo) {
    state->leftoverItems = {trashItem("one", Safety::review, 7'000'000)};
    EXPECT_EQ(card(ScanPhase::done).at("title"), "Nothing needs sweeping right now");
    EXPECT_EQ(card().at("text"), "But 7 MB is worth a look. Nothing is removed until you choose.");
}

TEST_F(OverviewCards, DoneWithNothingBesideWhatIsSafeStillTellsTheSmallestSize) {
    state->crumbItems = {trashItem("one", Safety::safe, 3'000'000)};
    EXPECT_EQ(card(ScanPhase::done).at("text"),
              "Another 1 KB is worth a look. Nothing is removed until you choose.");
}

TEST_F(OverviewCards, OneLeftoverSpeaksOfAnAppAndMoreCountTheItems) {
    const auto words = [&] { return card(ScanPhase::done).at("cards").at(2).at("text"); };
    EXPECT_EQ(words(), "No files left behind by apps you’ve deleted.");
    state->leftoverItems = {trashItem("one", Safety::review, 1)};
    EXPECT_EQ(words(), "Files left behind by an app you’ve already deleted.");
    // Two folders of one app count as two.
    state->leftoverItems = {trashItem("leftover:com.gone.App", Safety::review, 1),
                            trashItem("leftover:com.gone.App/b", Safety::review, 1)};
    EXPECT_EQ(words(), "Files left behind by 2 apps you’ve already deleted.");
}

TEST_F(OverviewCards, BackupsAskForAccessOrTellHowManyThereAre) {
    const auto backups = [&] { return card(ScanPhase::done).at("cards").at(4); };
    EXPECT_EQ(backups().at("text"), "No iPhone or iPad backups on this Mac.");
    EXPECT_EQ(backups().at("call"), "Review");
    CleanupItem item = trashItem("one", Safety::review, 8'000'000);
    item.name = "Sam’s iPhone, backed up 2 March 2026";
    state->backupItems = {item};
    EXPECT_EQ(backups().at("text"), "One backup: Sam’s iPhone, backed up 2 March 2026.");
    state->backupItems = {item, item, item};
    EXPECT_EQ(backups().at("text"), "3 device backups. Check which devices you still have.");
    EXPECT_EQ(backups().at("amount"), "24 MB");
    for (const PermissionStatus status : {denied, notDetermined}) {
        setAccess(status);
        EXPECT_EQ(backups().at("text"),
                  "Allow Full Disk Access so Morvane can look for device backups.");
        EXPECT_EQ(backups().at("call"), "Allow Access");
    }
}

TEST_F(OverviewCards, SuccessWithTheTrashOpensIt) {
    state->freedMB = 1234;
    EXPECT_EQ(card(ScanPhase::success),
              (Json{{"kind", "success"},
                    {"title", "All swept! You freed 1.2 GB"},
                    {"text",
                     "Everything went to the Trash, so you can still change your mind until you "
                     "empty it."},
                    {"openTrash", button("Open Trash")},
                    {"button", button("Done")}}));
}

TEST_F(OverviewCards, SuccessWithoutTheTrashHasOnlyDone) {
    state->freedMB = 8;
    state->alwaysUseTrash = false;
    EXPECT_EQ(card(ScanPhase::success), (Json{{"kind", "success"},
                                              {"title", "All swept! You freed 8 MB"},
                                              {"text", "Everything was deleted right away."},
                                              {"openTrash", nullptr},
                                              {"button", button("Done")}}));
    refusal("overview", "card.openTrash");
}

TEST_F(OverviewCards, EmptyIsSpotless) {
    EXPECT_EQ(
        card(ScanPhase::empty),
        (Json{{"kind", "empty"},
              {"title", "Spotless."},
              {"text", "Nothing to sweep right now."},
              {"detail", "Morvane found nothing worth removing. You can scan again any time."},
              {"button", button("Scan Again")}}));
}

}  // namespace
}  // namespace morvane::screens
