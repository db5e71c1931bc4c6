#include "removal/put_back.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_files.h"
#include "support/fake_remover.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class PutBack : public testing::Test {
protected:
    fakes::FakeFiles files;
    fakes::FakeRemover remover{files, "/t"};
};

TEST_F(PutBack, CountsWhatMovedWhatIsInTheWayAndWhatRemains) {
    for (const char* name : {"/t/moved", "/t/blocked", "/t/failed"}) files.addFile(name, 1);
    files.addFile("/a/blocked", 5);
    remover.cannotPutBack = {"/a/failed"};
    const PutBackOutcome outcome = putBack({{"/a/moved", "/t/moved"},
                                            {"/a/blocked", "/t/blocked"},
                                            {"/a/failed", "/t/failed"},
                                            {"/a/emptied", "/t/emptied"}},
                                           files, remover);
    EXPECT_EQ(outcome.moved, 1);
    EXPECT_EQ(outcome.blocked, 1);
    EXPECT_THAT(outcome.remaining,
                ElementsAre(Pair("/a/blocked", "/t/blocked"), Pair("/a/failed", "/t/failed")));
}

TEST_F(PutBack, KeepsWhatItCouldNotLookAt) {
    files.addFile("/t/a", 1);
    files.addFile("/a", 2);
    files.breakAttributes("/a");
    const PutBackOutcome outcome = putBack({{"/a", "/t/a"}}, files, remover);
    EXPECT_EQ(outcome.blocked, 1);
    EXPECT_THAT(outcome.remaining, ElementsAre(Pair("/a", "/t/a")));
    EXPECT_THAT(remover.putBacks, IsEmpty());
}

TEST_F(PutBack, OfNothingComesToNothing) {
    const PutBackOutcome outcome = putBack({}, files, remover);
    EXPECT_EQ(outcome.moved, 0);
    EXPECT_THAT(outcome.remaining, IsEmpty());
}

TEST_F(PutBack, GoesFromTheOutermostInwards) {
    files.addFolder("/t/3");
    files.addFolder("/t/2");
    files.addFile("/t/1", 1);
    const PutBackOutcome outcome =
        putBack({{"/a/b/c", "/t/1"}, {"/a/b", "/t/2"}, {"/a", "/t/3"}}, files, remover);
    EXPECT_EQ(outcome.moved, 3);
    EXPECT_THAT(remover.putBacks,
                ElementsAre(Pair("/t/3", "/a"), Pair("/t/2", "/a/b"), Pair("/t/1", "/a/b/c")));
}

HistoryEntry entry(std::string id, std::map<std::string, std::string> trashed) {
    return {.id = std::move(id), .date = {}, .summary = {}, .trashed = std::move(trashed)};
}

TEST_F(PutBack, LeavesANewerSweepWhatLiesWhereItsOwnItemLay) {
    files.addFile("/t/a", 1);
    files.addFile("/t/b", 1);
    const std::vector<HistoryEntry> history{entry("3", {{"/z/a", "/t/a"}}),
                                            entry("2", {{"/y/a", "/t/a"}, {"/y/b", "/t/b"}}),
                                            entry("1", {{"/x/a", "/t/a"}})};
    const auto state = [&](const HistoryEntry& each) {
        return historyState(each, newerThan(each.id, history), files);
    };
    EXPECT_EQ(state(history[0]), HistoryState::restorable);
    EXPECT_EQ(state(history[1]), HistoryState::restorable);
    EXPECT_EQ(state(history[2]), HistoryState::emptied);
    EXPECT_EQ(state(entry("of no sweep", {{"/x/a", "/t/a"}})), HistoryState::restorable);
    EXPECT_THAT(withoutPlacesOf(newerThan("2", history), history[1].trashed),
                ElementsAre(Pair("/y/b", "/t/b")));
    files.remove("/t/b");
    EXPECT_EQ(state(history[1]), HistoryState::emptied);
}

TEST(PutBackWords, SpeakOfObstaclesOnlyWhereAllThatIsLeftIsBlocked) {
    EXPECT_EQ(putBackProblemWords({5, 0, {}}), std::nullopt);
    EXPECT_EQ(putBackProblemWords({0, 1, {{"/a", "/t"}}}),
              "Something new is in the way of 1 item.");
    EXPECT_EQ(putBackProblemWords({0, 2, {{"/a", "/t"}, {"/b", "/u"}}}),
              "Something new is in the way of 2 items.");
    EXPECT_EQ(putBackProblemWords({1, 1, {{"/a", "/t"}, {"/b", "/u"}}}),
              "2 items couldn’t be put back.");
    EXPECT_EQ(putBackProblemWords({1, 0, {{"/a", "/t"}}}), "1 item couldn’t be put back.");
}

}  // namespace
}  // namespace morvane
