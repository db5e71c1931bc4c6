// The list of the screens, and the disk under it.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

class Sidebar : public ScreenTest {
protected:
    [[nodiscard]] Json shown() { return screen("sidebar"); }
    [[nodiscard]] Json disk() { return shown().at("disk"); }
    // The rows that are selected.
    [[nodiscard]] Texts selected() {
        Texts ids;
        const Json all = shown();
        for (const Json& section : all.at("sections")) {
            for (const Json& row : section.at("rows")) {
                if (row.at("selected") == true) ids.push_back(row.at("id"));
            }
        }
        if (all.at("settings").at("selected") == true) ids.emplace_back("settings");
        return ids;
    }
};

TEST_F(Sidebar, ListsWhatThereIs) {
    const Json all = shown();
    EXPECT_EQ(all.at("brand"), "Morvane");
    EXPECT_EQ(all.at("sections").at(0).at("title"), "Clean");
    EXPECT_EQ(all.at("sections").at(0).at("rows").at(0), Json::parse(R"({
        "id": "overview", "label": "Overview", "symbol": "gauge.with.dots.needle.67percent",
        "selected": true})"));
    EXPECT_EQ(all.at("sections").at(0).at("rows").at(1), Json::parse(R"({
        "id": "sweep", "label": "Sweep", "symbol": "morvane", "selected": false})"));
    EXPECT_EQ(all.at("settings"), Json::parse(R"({
        "id": "settings", "label": "Settings", "symbol": "slider.horizontal.3",
        "selected": false})"));
}

TEST_F(Sidebar, SelectsTheScreenOnViewAlone) {
    for (const auto& [item, id] : {std::pair{SidebarItem::overview, "overview"},
                                   {SidebarItem::sweep, "sweep"},
                                   {SidebarItem::settings, "settings"}}) {
        state->selection = item;
        EXPECT_THAT(selected(), ElementsAre(id));
    }
}

TEST_F(Sidebar, WithoutASelectionSelectsTheOverview) {
    state->selection = std::nullopt;
    EXPECT_THAT(selected(), ElementsAre("overview"));
}

TEST_F(Sidebar, CallsTheDiskMacintoshHDWhateverItsName) {
    state->disk = DiskUsage{
        .volumeName = "Elsewhere", .totalBytes = 500'000'000'000, .freeBytes = 100'000'000'000};
    EXPECT_EQ(disk(), Json::parse(R"({"name": "Macintosh HD", "free": "100 GB free",
                                      "fraction": 0.8})"));
}

TEST_F(Sidebar, ShowsADiskWithoutATotalAsAnEmptyTrack) {
    state->disk = DiskUsage{};
    EXPECT_EQ(disk(), Json::parse(R"({"name": "Macintosh HD", "free": "0 GB free",
                                      "fraction": 0.0})"));
    state->disk = DiskUsage{.totalBytes = 0, .freeBytes = 64'000'000'000};
    EXPECT_EQ(disk(), Json::parse(R"({"name": "Macintosh HD", "free": "64 GB free",
                                      "fraction": 0.0})"));
}

TEST_F(Sidebar, KeepsTheFractionBetweenNothingAndAll) {
    state->disk = DiskUsage{.totalBytes = 100, .freeBytes = 300};
    EXPECT_EQ(disk().at("fraction"), 0.0);
    state->disk = DiskUsage{.totalBytes = 100, .freeBytes = -50};
    EXPECT_EQ(disk().at("fraction"), 1.0);
    state->disk = DiskUsage{.totalBytes = 3, .freeBytes = 2};
    EXPECT_EQ(disk().at("fraction"), 1.0 / 3.0);
}

TEST_F(Sidebar, TellsNothingOfWhatAScanFound) {
    const Json before = shown();
    state->crumbItems = {trashItem("one", Safety::safe, 5'000'000)};
    state->scanPhase = ScanPhase::done;
    EXPECT_EQ(shown(), before);
}

TEST_F(Sidebar, APressSelectsTheRowsScreen) {
    EXPECT_THAT(changedBy([&] { press("sidebar", "sections.rows", "sweep"); }),
                ElementsAre("selection"));
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    EXPECT_THAT(changedBy([&] { press("sidebar", "settings"); }), ElementsAre("selection"));
    EXPECT_EQ(*state->selection, SidebarItem::settings);
    press("sidebar", "sections.rows", "overview");
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_TRUE(state->isIdle());
}

TEST_F(Sidebar, KnowsNoOtherRows) {
    EXPECT_EQ(refusal("sidebar", "sections.rows", "settings"),
              "there is no row \"settings\" at \"sections.rows\"");
    EXPECT_EQ(refusal("sidebar", "settings", "settings"),
              "the control \"settings\" has no row \"settings\"");
    EXPECT_EQ(refusal("sidebar", "sections.rows"), "the control \"sections.rows\" needs a row");
}

}  // namespace
}  // namespace morvane::screens
