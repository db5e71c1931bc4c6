#include "core/observable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "tasks/event_loop.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class Observing : public testing::Test {
protected:
    EventLoop loop{Instant{}};
    std::unique_ptr<Store> store = std::make_unique<Store>(loop);
    std::vector<int> kept;
    Observable<int> count{*store, "count", 1, [this](const int& value) { kept.push_back(value); }};
    Observable<std::string> name{*store, "name", "a"};
    std::vector<ChangedFields> told;
    Store::Subscription subscription =
        store->observe([this](const ChangedFields& changed) { told.push_back(changed); });
};

TEST_F(Observing, IsToldOnceATurnOfAllThatChanged) {
    count = 2;
    count = 3;
    name = "b";
    EXPECT_THAT(told, IsEmpty());
    loop.runReady();
    EXPECT_THAT(told, ElementsAre(ElementsAre(Pair("count", false), Pair("name", false))));
    EXPECT_EQ(*count, 3);
    loop.runReady();
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(Observing, IsNotToldOfAnEqualValueWhichIsKeptAllTheSame) {
    count = 1;
    loop.runReady();
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(kept, ElementsAre(1));
}

TEST_F(Observing, IsToldOfAFieldThatReturnedToItsValue) {
    count = 2;
    count = 1;
    loop.runReady();
    EXPECT_THAT(told, ElementsAre(ElementsAre(Pair("count", false))));
}

TEST_F(Observing, IsToldOfARedrawThoughNothingDiffers) {
    count.setAndRedraw(1);
    loop.runReady();
    EXPECT_THAT(told, ElementsAre(ElementsAre(Pair("count", false))));
    EXPECT_THAT(kept, ElementsAre(1));
}

TEST_F(Observing, WritesOnlyWhatDiffersWhereItIsAskedTo) {
    count.setIfDifferent(1);
    EXPECT_THAT(kept, IsEmpty());
    count.setIfDifferent(2);
    EXPECT_THAT(kept, ElementsAre(2));
    EXPECT_EQ(*count, 2);
}

TEST_F(Observing, ChangesAValueInPlace) {
    count.update([](int& value) { value += 5; });
    EXPECT_EQ(*count, 6);
    EXPECT_THAT(kept, ElementsAre(6));
}

TEST_F(Observing, SeesWhichWritesWereAnimated) {
    {
        const AnimatedChange outer(*store);
        {
            const AnimatedChange inner(*store);
        }
        name = "b";
    }
    count = 2;
    loop.runReady();
    EXPECT_THAT(told, ElementsAre(ElementsAre(Pair("count", false), Pair("name", true))));
    name = "c";
    loop.runReady();
    EXPECT_THAT(told.back(), ElementsAre(Pair("name", false)));
}

TEST_F(Observing, TellsAWriteOfAnObserverAtTheNextTurn) {
    const auto second = store->observe([this](const ChangedFields& changed) {
        if (changed.contains("count")) name = "from the observer";
    });
    count = 2;
    loop.runReady();
    EXPECT_THAT(told,
                ElementsAre(ElementsAre(Pair("count", false)), ElementsAre(Pair("name", false))));
}

TEST_F(Observing, EndsWithTheSubscription) {
    count = 2;
    subscription = {};
    loop.runReady();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Observing, MayEndAnotherSubscriptionWhileItIsTold) {
    Store::Subscription other;
    int calls = 0;
    Store::Subscription ender = store->observe([&](const ChangedFields&) { other = {}; });
    other = store->observe([&](const ChangedFields&) { ++calls; });
    count = 2;
    loop.runReady();
    EXPECT_EQ(calls, 0);
}

TEST_F(Observing, HearsAndKeepsNothingAfterTheStoreIsClosed) {
    count = 2;
    kept.clear();
    store->close();
    count = 3;
    count.setAndRedraw(4);
    loop.runReady();
    EXPECT_EQ(*count, 4);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(kept, IsEmpty());
}

TEST(ObservingAStore, ThatGoesBeforeItsTurnHarmsNothing) {
    EventLoop loop{Instant{}};
    int calls = 0;
    Store::Subscription subscription;
    {
        Store store(loop);
        Observable<int> count{store, "count", 1};
        subscription = store.observe([&](const ChangedFields&) { ++calls; });
        count = 2;
    }
    loop.runReady();
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace morvane
