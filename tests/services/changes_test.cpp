#include "platform/changes.h"

#include <gmock/gmock.h>
#include <optional>
#include <string>

namespace morvane {
namespace {

using testing::ElementsAre;

TEST(Changes, TellObserversInTheOrderInWhichTheyAsked) {
    Changes changes;
    std::vector<std::string> told;
    const Subscription first = changes.observe([&] { told.emplace_back("first"); });
    const Subscription second = changes.observe([&] { told.emplace_back("second"); });
    changes.tell();
    EXPECT_THAT(told, ElementsAre("first", "second"));
}

TEST(Changes, TellNobodyWhoseSubscriptionIsGone) {
    Changes changes;
    int told = 0;
    Subscription subscription = changes.observe([&] { ++told; });
    changes.tell();
    subscription = {};
    changes.tell();
    {
        const Subscription brief = changes.observe([&] { ++told; });
    }
    changes.tell();
    EXPECT_EQ(told, 1);
}

TEST(Changes, LetAnObserverGoWhileItIsTold) {
    Changes changes;
    std::vector<std::string> told;
    Subscription second;
    const Subscription first = changes.observe([&] {
        told.emplace_back("first");
        second = {};
    });
    second = changes.observe([&] { told.emplace_back("second"); });
    changes.tell();
    EXPECT_THAT(told, ElementsAre("first"));
}

TEST(Changes, LetAnObserverComeWhileOthersAreTold) {
    Changes changes;
    int told = 0;
    std::vector<Subscription> later;
    const Subscription first =
        changes.observe([&] { later.push_back(changes.observe([&] { ++told; })); });
    changes.tell();
    EXPECT_EQ(told, 0);
    changes.tell();
    EXPECT_EQ(told, 1);
}

TEST(Changes, MayBeDroppedByAnObserver) {
    std::optional<Changes> changes(std::in_place);
    const Subscription first = changes->observe([&] { changes.reset(); });
    int told = 0;
    const Subscription second = changes->observe([&] { ++told; });
    changes->tell();
    EXPECT_FALSE(changes.has_value());
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace morvane
