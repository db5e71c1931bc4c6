#include "tasks/task.h"

#include <gmock/gmock.h>

#include "tasks/background.h"
#include "tasks/gates.h"
#include "tasks/sleep.h"
#include "tasks/workshop.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

Task<int> answer(Workshop& shop, Counted) {
    shop.note("answer");
    co_return 42;
}

Task<> ask(Workshop& shop, Counted::Counts& counts) {
    Task<int> child = answer(shop, Counted(counts));
    shop.note("made");
    const int value = co_await std::move(child);
    shop.note(std::to_string(value));
}

TEST(Task, DoesNotStartBeforeItIsAwaited) {
    Workshop shop;
    Counted::Counts counts;
    shop.scope.start(ask(shop, counts));
    EXPECT_THAT(shop.diary, ElementsAre());
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("made", "answer", "42"));
    EXPECT_EQ(counts.alive, 0);
}

TEST(Task, DestroysItsArgumentsWhenItIsNeverAwaited) {
    Workshop shop;
    Counted::Counts counts;
    {
        const Task<int> never = answer(shop, Counted(counts));
        EXPECT_EQ(counts.alive, 1);
    }
    EXPECT_EQ(counts.alive, 0);
    Task<int> replaced = answer(shop, Counted(counts));
    replaced = answer(shop, Counted(counts));
    EXPECT_EQ(counts.alive, 1);
    EXPECT_THAT(shop.diary, ElementsAre());
}

TEST(Task, IsOwnedByOneAtATime) {
    Workshop shop;
    Counted::Counts counts;
    {
        Task<int> first = answer(shop, Counted(counts));
        const Task<int> second = std::move(first);
        EXPECT_EQ(counts.alive, 1);
    }
    EXPECT_EQ(counts.alive, 0);
}

struct Unmovable {
    Unmovable() = default;
    Unmovable(const Unmovable&) = delete;
    Unmovable& operator=(const Unmovable&) = delete;
};

Task<std::unique_ptr<Unmovable>> makeUnmovable() {
    co_return std::make_unique<Unmovable>();
}

Task<> takeUnmovable(Workshop& shop) {
    const std::unique_ptr<Unmovable> got = co_await makeUnmovable();
    shop.note(got ? "got it" : "lost it");
}

TEST(Task, HandsOverWhatCanOnlyBeMoved) {
    Workshop shop;
    shop.scope.start(takeUnmovable(shop));
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("got it"));
}

Task<int> one() {
    co_return 1;
}

Task<> addUp(int times, long& sum) {
    for (int time = 0; time < times; ++time) sum += co_await one();
}

TEST(Task, IsAwaitedAMillionTimesWithoutTheStackGrowing) {
    Workshop shop;
    long sum = 0;
    shop.scope.start(addUp(1000000, sum));
    EXPECT_TRUE(shop.finish());
    EXPECT_EQ(sum, 1000000);
}

Task<int> depth(int levels) {
    if (levels == 0) co_return 0;
    co_return 1 + co_await depth(levels - 1);
}

Task<> measureDepth(int levels, int& found) {
    found = co_await depth(levels);
}

TEST(Task, MayAwaitOneAnotherVeryDeep) {
    Workshop shop;
    int found = 0;
    shop.scope.start(measureDepth(100000, found));
    EXPECT_TRUE(shop.finish());
    EXPECT_EQ(found, 100000);
}

// An aggregate with a member that can tell how often it was destroyed.
struct Order {
    std::string name;
    Counted counted;
};

Task<std::string> nameOf(Order order, std::function<int()> number) {
    co_await sleepFor(1s);
    co_return order.name + std::to_string(number());
}

Task<> orderTwice(Workshop& shop, Counted::Counts& counts, Counted::Counts& captured) {
    const std::string longName = "a name that does not fit into the text itself ";
    shop.note(co_await nameOf(
        Order{.name = longName, .counted = Counted(counts)},
        [longName, kept = Counted(captured)] { return static_cast<int>(longName.size()); }));
    shop.note(co_await nameOf({.name = longName + "!", .counted = Counted(counts)},
                              [kept = Counted(captured)] { return 7; }));
}

TEST(Task, LeavesWhatIsMadeInsideAnAwaitingExpressionToBeDestroyedOnce) {
    Workshop shop;
    Counted::Counts counts;
    Counted::Counts captured;
    shop.scope.start(orderTwice(shop, counts, captured));
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("a name that does not fit into the text itself 46",
                                        "a name that does not fit into the text itself !7"));
    EXPECT_EQ(counts.alive, 0);
    EXPECT_EQ(captured.alive, 0);
    EXPECT_GE(counts.destroyed, 4);
}

Task<> workInBackground(Workshop& shop, Counted::Counts& counts) {
    const std::string made = co_await background(
        [kept = Counted(counts), text = std::string(100, 'x')](const StopToken&) { return text; });
    shop.note(std::to_string(made.size()));
}

TEST(Task, DestroysAFunctionOfThePoolOnce) {
    Workshop shop;
    Counted::Counts counts;
    shop.scope.start(workInBackground(shop, counts));
    EXPECT_TRUE(shop.finish());
    EXPECT_THAT(shop.diary, ElementsAre("100"));
    EXPECT_EQ(counts.alive, 0);
}

}  // namespace
}  // namespace morvane
