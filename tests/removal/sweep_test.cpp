#include "removal/sweep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_files.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CleanupItem item(std::string id, std::vector<CleanupPart> parts) {
    CleanupItem made{.id = std::move(id), .safety = Safety::safe};
    return withParts(std::move(made), std::move(parts));
}

CleanupItem command(std::string id, std::int64_t bytes) {
    return {.id = std::move(id), .bytes = bytes, .action = CommandAction{"/bin/x", {}}};
}

TEST(SweptItems, GiveTheirPathsInOrderAndCommandsNone) {
    const auto targets = removalTargets(
        {item("a", {{"/2", 1}, {"/1", 1}}), command("x", 1), item("b", {{"/3", 1, {1, 2}}})});
    ASSERT_EQ(targets.size(), 3U);
    EXPECT_EQ(targets[0].path, "/2");
    EXPECT_EQ(targets[1].path, "/1");
    EXPECT_EQ(targets[2].path, "/3");
    EXPECT_EQ(targets[2].folder, (FolderIdentity{1, 2}));
    EXPECT_THAT(removalTargets({command("x", 1)}), IsEmpty());
}

TEST(SweptItems, AreJudgedByWhatStillStands) {
    fakes::FakeFiles files;
    files.addFile("/left", 1);
    SweepOutcome outcome;
    judgeTrashItem(item("all", {{"/g", 1}, {"/h", 2}}), files, outcome);
    judgeTrashItem(item("some", {{"/i", 30}, {"/left", 400}}), files, outcome);
    judgeTrashItem(item("none", {{"/left", 400}}), files, outcome);
    judgeTrashItem(item("empty", {}), files, outcome);
    EXPECT_EQ(outcome.freedBytes, 33);
    EXPECT_THAT(outcome.removedIDs, ElementsAre("all", "empty"));
    EXPECT_EQ(outcome.failures, 2);
    ASSERT_EQ(outcome.partials.size(), 2U);
    EXPECT_EQ(outcome.partials.at("some"), item("some", {{"/left", 400}}));
    EXPECT_EQ(outcome.partials.at("none"), item("none", {{"/left", 400}}));
}

TEST(SweptCommands, CountWhenTheyEndWithZero) {
    SweepOutcome outcome;
    judgeCommandItem(command("ok", 7), 0, outcome);
    judgeCommandItem(command("bad", 70), 1, outcome);
    judgeCommandItem(command("killed", 700), 137, outcome);
    judgeCommandItem(command("missing", 7'000), std::nullopt, outcome);
    EXPECT_EQ(outcome.freedBytes, 7);
    EXPECT_THAT(outcome.removedIDs, ElementsAre("ok"));
    EXPECT_EQ(outcome.failures, 3);
    EXPECT_THAT(outcome.partials, IsEmpty());
}

TEST(SweptLists, KeepTheirOrder) {
    SweepOutcome outcome;
    outcome.removedIDs = {"b"};
    outcome.partials = {{"c", item("c", {{"/c", 5}})}};
    const auto after = itemsAfter(outcome, {item("a", {{"/a", 1}}), item("b", {{"/b", 1}}),
                                            item("c", {{"/c", 5}, {"/d", 6}})});
    EXPECT_EQ(after, (std::vector<CleanupItem>{item("a", {{"/a", 1}}), item("c", {{"/c", 5}})}));
}

TEST(SweptLists, DropSectionsWithoutItems) {
    SweepOutcome outcome;
    outcome.removedIDs = {"b"};
    const auto after = sectionsAfter(outcome, {{.id = "one", .items = {item("b", {})}},
                                               {.id = "two", .items = {item("c", {})}},
                                               {.id = "three", .items = {}}});
    ASSERT_EQ(after.size(), 1U);
    EXPECT_EQ(after[0].id, "two");
}

TEST(SweepSummary, CountsAtLeastOneItem) {
    SweepOutcome outcome;
    outcome.freedBytes = 1'234'000'000;
    EXPECT_EQ(sweepSummary(outcome, std::nullopt), "1 item · 1.2 GB");
    outcome.removedIDs = {"a"};
    EXPECT_EQ(sweepSummary(outcome, std::nullopt), "1 item · 1.2 GB");
    outcome.removedIDs = {"a", "b"};
    EXPECT_EQ(sweepSummary(outcome, std::nullopt), "2 items · 1.2 GB");
    outcome.freedBytes = 1;
    EXPECT_EQ(sweepSummary(outcome, "Developer sweep"), "Developer sweep · 1 KB");
}

TEST(SweepProblem, IsToldInCounts) {
    SweepOutcome outcome;
    EXPECT_EQ(sweepProblemWords(outcome), std::nullopt);
    outcome.failures = 1;
    EXPECT_EQ(sweepProblemWords(outcome),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    outcome.removedIDs = {"a"};
    EXPECT_EQ(sweepProblemWords(outcome), "1 item couldn’t be removed. They may be in use.");
    outcome.failures = 2;
    EXPECT_EQ(sweepProblemWords(outcome), "2 items couldn’t be removed. They may be in use.");
}

}  // namespace
}  // namespace morvane
