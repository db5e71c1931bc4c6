#include "core/sweep_fixture.h"

namespace morvane {
namespace {

using enum Safety;

class CommandSweep : public Sweep {
protected:
    void answer(const std::string& argument, int status) {
        system.processes.answer({"/usr/bin/tool", argument}, {status, "reclaimed"});
    }
};

TEST_F(CommandSweep, OfCommandsAloneMovesNothingAndIsRemembered) {
    state->devSections = {{devSection("dock", {commandItem("docker:images", 8'000'000, {"images"}),
                                               commandItem("docker:build", 1, {"build"})})}};
    state->devSelection = Ids{"docker:images", "docker:build"};
    answer("images", 0);
    answer("build", 0);
    sweep({state->devItems()[0]}, "Developer sweep");
    EXPECT_THAT(remover.recycled, IsEmpty());
    EXPECT_THAT(system.processes.runs(),
                ElementsAre(fakes::FakeProcesses::Run{{"/usr/bin/tool", "images"}, 600s}));
    EXPECT_THAT(idsOf(state->devItems()), ElementsAre("docker:build"));
    EXPECT_THAT(*state->devSelection, ElementsAre("docker:build"));
    EXPECT_EQ(*state->freedMB, 8.0);
    ASSERT_THAT(*state->history, SizeIs(1));
    EXPECT_EQ(state->history->front().summary, "Developer sweep · 8 MB");
    EXPECT_THAT(state->history->front().trashed, IsEmpty());
    EXPECT_EQ(state->historyState(state->history->front()), HistoryState::deleted);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_EQ(*state->scanPhase, ScanPhase::success);
}

TEST_F(CommandSweep, KeepsTheItemOfAFailedCommand) {
    const CleanupItem images = commandItem("docker:images", 8'000'000, {"images"});
    const CleanupItem missing = commandItem("docker:build", 5'000'000, {"build"});
    state->devSections = {{devSection("dock", {images, missing})}};
    state->devSelection = Ids{"docker:images", "docker:build"};
    answer("images", 1);
    sweep(state->devItems(), "Developer sweep");
    EXPECT_EQ(state->devItems(), (std::vector<CleanupItem>{images, missing}));
    EXPECT_THAT(*state->devSelection, ElementsAre("docker:build", "docker:images"));
    EXPECT_EQ(*state->sweepProblem,
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
}

TEST_F(CommandSweep, RunsCommandsInOrderAfterTheFilesWent) {
    answer("one", 0);
    answer("two", 3);
    answer("three", 0);
    bool fileWasGone = false;
    system.processes.whileRunning(
        [&](const fakes::FakeProcesses::Run&) { fileWasGone = !stands("/x/file"); });
    sweep({commandItem("one", 1, {"one"}), placed(trashItem("file", safe, 1'000'000)),
           commandItem("two", 1, {"two"}), commandItem("three", 1, {"three"})});
    std::vector<std::string> ran;
    for (const auto& run : system.processes.runs()) ran.push_back(run.commandLine.back());
    EXPECT_THAT(ran, ElementsAre("one", "two", "three"));
    EXPECT_TRUE(fileWasGone);
    EXPECT_EQ(*state->sweepProblem, "1 item couldn’t be removed. They may be in use.");
    EXPECT_EQ(state->history->front().summary, "3 items · 1 MB");
}

TEST_F(CommandSweep, TakesASectionWithItsLastItem) {
    state->devSections = {{devSection("dd", {placed(trashItem("dd:/a", safe, 1'000))}),
                           devSection("arc", {placed(trashItem("arc:/a", safe, 1'000))})}};
    sweep({state->devItems()[0]}, "Developer sweep");
    ASSERT_TRUE(state->devSections->has_value());
    ASSERT_THAT(**state->devSections, SizeIs(1));
    EXPECT_EQ((**state->devSections)[0].id, "arc");
    sweep(state->devItems(), "Developer sweep");
    EXPECT_EQ(*state->devSections, std::vector<DevSection>{});
}

TEST_F(CommandSweep, LeavesUnscannedSectionsAbsent) {
    fill();
    sweep(state->sweepItems());
    EXPECT_FALSE(state->devSections->has_value());
}

}  // namespace
}  // namespace morvane
