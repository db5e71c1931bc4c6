// The disk at the head of the Overview: its sentence, its bar, its note.

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

using enum PermissionStatus;

constexpr std::int64_t gigabyte = 1'000'000'000;

class OverviewDisk : public ScreenTest {
protected:
    [[nodiscard]] Json disk() { return screen("overview").at("disk"); }
    [[nodiscard]] static DiskUsage measuredDisk() {
        return {.totalBytes = 500 * gigabyte,
                .freeBytes = 100 * gigabyte,
                .purgeableBytes = 20 * gigabyte,
                .systemBytes = 60 * gigabyte,
                .measured = {{DiskCategory::apps, 40 * gigabyte},
                             {DiskCategory::media, 30 * gigabyte},
                             {DiskCategory::documents, 20 * gigabyte},
                             {DiskCategory::developer, 10 * gigabyte}},
                .isComplete = true};
    }
};

TEST_F(OverviewDisk, TellsEverySliceInItsPlace) {
    state->disk = measuredDisk();
    EXPECT_EQ(disk(), Json::parse(R"({
        "name": "Macintosh HD",
        "used": "380 GB used of 500 GB",
        "free": "100 GB free",
        "segments": [
            {"id": "apps", "label": "Apps", "size": "40 GB", "color": "accent",
             "fraction": 0.08},
            {"id": "media", "label": "Photos & Video", "size": "30 GB", "color": "diskMedia",
             "fraction": 0.06},
            {"id": "documents", "label": "Documents", "size": "20 GB",
             "color": "diskDocuments", "fraction": 0.04},
            {"id": "developer", "label": "Developer", "size": "10 GB",
             "color": "diskDeveloper", "fraction": 0.02},
            {"id": "system", "label": "macOS & System", "size": "60 GB", "color": "diskSystem",
             "fraction": 0.12},
            {"id": "other", "label": "Other", "size": "220 GB", "color": "diskOther",
             "fraction": 0.44},
            {"id": "purgeable", "label": "Purgeable", "size": "20 GB", "color": "diskSystem",
             "fraction": 0.04}],
        "legendFree": {"label": "Free", "size": "100 GB"},
        "note": null})"));
}

TEST_F(OverviewDisk, SaysMeasuringOfWhatIsStillToCome) {
    state->disk = DiskUsage{.totalBytes = 500 * gigabyte,
                            .freeBytes = 100 * gigabyte,
                            .measured = {{DiskCategory::apps, 40 * gigabyte}}};
    EXPECT_EQ(disk().at("segments"), Json::parse(R"([
        {"id": "apps", "label": "Apps", "size": "40 GB", "color": "accent", "fraction": 0.08},
        {"id": "pending", "label": "Measuring…", "size": "360 GB", "color": "diskOther",
         "fraction": 0.72}])"));
}

TEST_F(OverviewDisk, CallsTheVolumeByItsOwnName) {
    state->disk = DiskUsage{.volumeName = "Über <b>HD</b>"};
    EXPECT_EQ(disk().at("name"), "Über <b>HD</b>");
}

TEST_F(OverviewDisk, NeverTellsANegativeUse) {
    state->disk = DiskUsage{
        .totalBytes = 100 * gigabyte, .freeBytes = 80 * gigabyte, .purgeableBytes = 40 * gigabyte};
    EXPECT_EQ(disk().at("used"), "0 GB used of 100 GB");
    EXPECT_EQ(disk().at("free"), "80 GB free");
}

TEST_F(OverviewDisk, CountsPurgeableSpaceNeitherAsUsedNorAsFree) {
    state->disk = DiskUsage{
        .totalBytes = 90 * gigabyte, .freeBytes = 20 * gigabyte, .purgeableBytes = 9'500'000'000};
    EXPECT_EQ(disk().at("used"), "60.5 GB used of 90 GB");
    EXPECT_EQ(disk().at("free"), "20 GB free");
}

TEST_F(OverviewDisk, KeepsEveryFractionBetweenNothingAndAll) {
    state->disk = DiskUsage{.totalBytes = 100, .freeBytes = 0, .purgeableBytes = 600};
    EXPECT_EQ(disk().at("segments").at(0).at("fraction"), 1.0);
    state->disk = DiskUsage{.purgeableBytes = 5};
    EXPECT_EQ(disk().at("segments").at(0).at("fraction"), 1.0);
    state->disk = DiskUsage{};
    EXPECT_EQ(disk().at("segments"), Json::array());
    EXPECT_EQ(disk().at("used"), "0 GB used of 0 GB");
}

TEST_F(OverviewDisk, NotesWhatIsNotCountedForWantOfAccess) {
    state->disk = measuredDisk();
    setAccess(denied);
    EXPECT_EQ(disk().at("note"),
              (Json{{"symbol", "lock"},
                    {"text",
                     "Photos and Documents are counted in Other until Morvane has Full Disk "
                     "Access."},
                    {"button", button("Allow…", {{"kind", "link"}})}}));
    setAccess(notDetermined);
    EXPECT_NE(disk().at("note"), nullptr);
}

TEST_F(OverviewDisk, HasNoNoteWithAccessBeforeTheEndOrWithoutAnythingMeasured) {
    state->disk = measuredDisk();
    EXPECT_EQ(disk().at("note"), nullptr);
    setAccess(denied);
    state->disk.update([](DiskUsage& usage) { usage.isComplete = false; });
    EXPECT_EQ(disk().at("note"), nullptr);
    state->disk.update([](DiskUsage& usage) {
        usage.isComplete = true;
        usage.measured.clear();
    });
    EXPECT_EQ(disk().at("note"), nullptr);
    refusal("overview", "disk.note.button");
}

TEST_F(OverviewDisk, TheNotesButtonOpensThePaneAndWatchesForTheAccess) {
    state->disk = measuredDisk();
    setAccess(denied);
    files.remove(library("Safari/Bookmarks.plist"));
    EXPECT_THAT(changedBy([&] { press("overview", "disk.note.button"); }), IsEmpty());
    EXPECT_THAT(
        system.workspace.openedURLs,
        ElementsAre("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
    EXPECT_TRUE(state->accessWatchTask.isAtWork());
    grantAccess();
    loop.advance(1s);
    EXPECT_EQ(*state->fullDiskAccess, granted);
    EXPECT_EQ(system.workspace.activations, 1);
}

}  // namespace
}  // namespace morvane::screens
