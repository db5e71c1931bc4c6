// No screen lacks a key or has one too many, whatever stands on it.

#include "screens/screen_shapes.h"
#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

using test::screenParts;
using test::shapeFaults;

class Shapes : public ScreenTest {
protected:
    void expectShapes() {
        for (const auto& [name, shape] : test::screenShapes()) {
            EXPECT_EQ(shapeFaults(screen(name), shape, name), "");
        }
    }
};

TEST_F(Shapes, OfTheScreensAreTheAgreedOnes) {
    expectShapes();
}

TEST_F(Shapes, HoldForEveryCard) {
    for (const ScanPhase phase : {ScanPhase::idle, ScanPhase::scanning, ScanPhase::done,
                                  ScanPhase::success, ScanPhase::empty}) {
        state->scanPhase = phase;
        expectShapes();
    }
}

TEST_F(Shapes, HoldForEveryRowAndNote) {
    CleanupItem item = trashItem("one", Safety::safe, 1);
    item.revealURL = "/x/one";
    state->crumbItems = {item};
    state->expandedSweepItems = {"one"};
    state->notificationStatus = PermissionStatus::denied;
    files.addFolder(home("Work"));
    state->ignoredFolders = {"/Users/sam/Work", "/gone"};
    files.addFile(trash("one"), 1);
    state->recordSweep("1 item · 1 KB", {{"/x/one", trash("one")}});
    state->recordSweep("1 item · 1 KB", {});
    state->restoreProblem = {{state->history->at(1).id, "1 item couldn’t be put back."}};
    state->disk = DiskUsage{.totalBytes = 100,
                            .freeBytes = 10,
                            .purgeableBytes = 10,
                            .measured = {{DiskCategory::apps, 20}},
                            .isComplete = true};
    setAccess(PermissionStatus::denied);
    ASSERT_NE(screen("overview").at("disk").at("note"), nullptr);
    ASSERT_NE(screen("settings").at("history").at("rows").at(1).at("problem"), nullptr);
    expectShapes();
}

TEST_F(Shapes, AFaultIsSeen) {
    const Json good = button("Go");
    const Json& shape = screenParts().at("button");
    EXPECT_EQ(shapeFaults(good, shape, "b"), "");
    Json bad = good;
    bad.erase("busy");
    EXPECT_EQ(shapeFaults(bad, shape, "b"), "b lacks busy\n");
    bad = good;
    bad["colour"] = "red";
    EXPECT_EQ(shapeFaults(bad, shape, "b"), "b has a further key colour\n");
    bad = good;
    bad["kind"] = "round";
    EXPECT_EQ(shapeFaults(bad, shape, "b"), "b.kind is no buttonKind: \"round\"\n");
    bad = good;
    bad["label"] = nullptr;
    EXPECT_EQ(shapeFaults(bad, shape, "b"), "b.label is no text: null\n");
}

}  // namespace
}  // namespace morvane::screens
