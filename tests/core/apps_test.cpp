#include "core/store_test.h"

namespace morvane {
namespace {

class Apps : public StoreTest {
protected:
    Apps() {
        files.addFile("/Applications/Editor.app/Contents/MacOS/Editor", 30);
        files.addFile("/Applications/Viewer.app/Contents/MacOS/Viewer", 20);
        files.addFile(library("Caches/Editor/data"), 5);
    }
    void scanApps(bool force = false) {
        state->scanApps(force);
        finishWork();
    }
    [[nodiscard]] Texts shown() const {
        Texts names;
        for (const InstalledApp& app : state->visibleApps()) names.push_back(app.name);
        return names;
    }
};

TEST_F(Apps, AreListedWithWhatTheyKeep) {
    start();
    state->scanApps(false);
    EXPECT_TRUE(*state->isScanningApps);
    EXPECT_TRUE(state->appScanTask.isAtWork());
    finishWork();
    EXPECT_FALSE(*state->isScanningApps);
    EXPECT_EQ(*state->appsScannedAt, system.now);
    EXPECT_THAT(shown(), ElementsAre("Editor", "Viewer"));
    EXPECT_DOUBLE_EQ(megabytes(state->visibleApps()[0]), 0.000035);
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Apps, AreNotScannedAgainWithinFiveMinutes) {
    start();
    scanApps();
    files.addFile("/Applications/Writer.app/Contents/MacOS/Writer", 1);
    loop.advance(300s - 1ns);
    scanApps();
    EXPECT_THAT(shown(), SizeIs(2));
    loop.advance(1ns);
    scanApps();
    EXPECT_THAT(shown(), SizeIs(3));
    EXPECT_EQ(*state->appsScannedAt, system.now + 300s);
}

TEST_F(Apps, AreScannedAgainAtOnceWhenForced) {
    start();
    scanApps();
    files.remove("/Applications/Viewer.app");
    scanApps(true);
    EXPECT_THAT(shown(), ElementsAre("Editor"));
}

TEST_F(Apps, AreScannedOnceAtATime) {
    ThreadGate& gate = hold("list", "/Applications");
    start();
    state->scanApps(true);
    const TaskHandle first = state->appScanTask;
    state->scanApps(true);
    gate.open();
    finishWork();
    EXPECT_EQ(timesAsked("list /Applications"), 1);
}

TEST_F(Apps, FillTheGridOneByOneTheFirstTime) {
    ThreadGate& gate = hold("attributes", "/Applications/Viewer.app");
    start();
    state->scanApps(false);
    runUntil([&] { return !state->apps->empty(); });
    EXPECT_THAT(shown(), ElementsAre("Editor"));
    EXPECT_TRUE(*state->isScanningApps);
    EXPECT_EQ(*state->appsScannedAt, std::nullopt);
    gate.open();
    finishWork();
    EXPECT_THAT(shown(), ElementsAre("Editor", "Viewer"));
}

TEST_F(Apps, LeaveTheOldGridInPlaceWhileTheyAreRefreshed) {
    start();
    scanApps();
    files.remove("/Applications/Editor.app");
    files.addFile("/Applications/Writer.app/Contents/MacOS/Writer", 1);
    ThreadGate& gate = hold("attributes", "/Applications/Viewer.app");
    state->scanApps(true);
    runUntilHeld(gate);
    loop.runReady();
    EXPECT_THAT(shown(), ElementsAre("Editor", "Viewer"));
    gate.open();
    finishWork();
    EXPECT_THAT(shown(), ElementsAre("Viewer", "Writer"));
}

TEST_F(Apps, OfACancelledScanLeaveTheListAndItsDate) {
    start();
    scanApps();
    files.remove("/Applications/Editor.app");
    ThreadGate& gate = hold("attributes", "/Applications/Viewer.app");
    state->scanApps(true);
    runUntilHeld(gate);
    loop.runReady();
    state->appScanTask.cancel();
    loop.advance(1h);
    gate.open();
    finishWork();
    EXPECT_THAT(shown(), ElementsAre("Editor", "Viewer"));
    EXPECT_EQ(*state->appsScannedAt, system.now);
    EXPECT_FALSE(*state->isScanningApps);
}

TEST_F(Apps, AreLeftOutInIgnoredFolders) {
    defaults.stored["ignoredFolders"] =
        Texts{"/Applications/Viewer.app", "/Users/sam/Library/Caches"};
    start();
    scanApps();
    ASSERT_THAT(shown(), ElementsAre("Editor"));
    EXPECT_THAT(state->apps->front().parts, SizeIs(1));
}

TEST_F(Apps, AreLeftOutOfAFolderIgnoredWhileTheScanRan) {
    ThreadGate& gate = hold("attributes", "/Applications/Viewer.app");
    start();
    state->scanApps(false);
    runUntilHeld(gate);
    loop.runReady();
    system.workspace.panelAnswer = Paths{"/Applications/Editor.app"};
    state->addIgnoredFolders();
    loop.runReady();
    gate.open();
    finishWork();
    EXPECT_THAT(shown(), ElementsAre("Viewer"));
}

TEST_F(Apps, AreFoundByAQueryInAnyCase) {
    start();
    scanApps();
    state->appQuery = "  EDIT ";
    EXPECT_THAT(shown(), ElementsAre("Editor"));
    state->appQuery = " ";
    EXPECT_THAT(shown(), SizeIs(2));
    state->appQuery = "none";
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(Apps, AreShownInTheChosenOrder) {
    start();
    const Instant today = system.now;
    state->apps = {
        {.url = "/b", .name = "beta", .lastUsed = today - 48h, .parts = {{"Application", "/b", 5}}},
        {.url = "/a", .name = "Alpha", .lastUsed = today, .parts = {{"Application", "/a", 1}}},
        {.url = "/c", .name = "Gamma", .parts = {{"Application", "/c", 3}}}};
    EXPECT_THAT(shown(), ElementsAre("beta", "Gamma", "Alpha"));
    state->appSort = AppSort::name;
    EXPECT_THAT(shown(), ElementsAre("Alpha", "beta", "Gamma"));
    state->appSort = AppSort::leastUsed;
    EXPECT_THAT(shown(), ElementsAre("Gamma", "beta", "Alpha"));
}

TEST_F(Apps, AreScannedWithTheirContainersOnlyWithAccess) {
    files.addFile(library("Containers/com.acme.Editor/data"), 5);
    files.addContents(
        "/Applications/Editor.app/Contents/Info.plist",
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>CFBundleIdentifier</key>"
        "<string>com.acme.Editor</string></dict></plist>");
    start();
    scanApps();
    EXPECT_THAT(state->visibleApps()[0].parts, SizeIs(2));
    grantAccess();
    state->refreshPermissions();
    scanApps(true);
    EXPECT_THAT(state->visibleApps()[0].parts, SizeIs(3));
}

}  // namespace
}  // namespace morvane
