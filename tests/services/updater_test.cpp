#include "services/updater.h"

#include <gmock/gmock.h>
#include <optional>
#include <string>
#include <vector>

namespace morvane {
namespace {

using testing::ElementsAre;

// Remembers what it is asked for, in order.
class FakeService final : public UpdateService {
public:
    bool canCheck = true;
    bool checks = false;
    bool downloads = false;
    std::vector<std::string> calls;
    Changes changes;
    // Runs in the course of a call that sets a switch.
    std::function<void()> whenSet = [] {};

    void setCanCheck(bool value) {
        canCheck = value;
        changes.tell();
    }

    void start() override { calls.emplace_back("start"); }
    void checkForUpdates() override { calls.emplace_back("check"); }
    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck; }
    [[nodiscard]] Subscription observeCanCheck(std::function<void()> changed) override {
        return changes.observe(std::move(changed));
    }
    [[nodiscard]] bool automaticallyChecks() const override { return checks; }
    void setAutomaticallyChecks(bool value) override {
        calls.emplace_back(value ? "checks on" : "checks off");
        whenSet();
        checks = value;
    }
    [[nodiscard]] bool automaticallyDownloads() const override { return downloads; }
    void setAutomaticallyDownloads(bool value) override {
        calls.emplace_back(value ? "downloads on" : "downloads off");
        whenSet();
        downloads = value;
    }
};

TEST(Updater, StartsTheServiceAndTakesOverItsValues) {
    FakeService service;
    service.canCheck = false;
    service.checks = true;
    const Updater updater(service);
    EXPECT_THAT(service.calls, ElementsAre("start"));
    EXPECT_FALSE(updater.canCheckForUpdates());
    EXPECT_TRUE(updater.automaticallyChecksForUpdates());
    EXPECT_FALSE(updater.automaticallyDownloadsUpdates());
}

TEST(Updater, TakesOverThatDownloadsAreOnWhileChecksAreOff) {
    FakeService service;
    service.downloads = true;
    const Updater updater(service);
    EXPECT_TRUE(updater.canCheckForUpdates());
    EXPECT_FALSE(updater.automaticallyChecksForUpdates());
    EXPECT_TRUE(updater.automaticallyDownloadsUpdates());
}

TEST(Updater, ForwardsAPress) {
    FakeService service;
    Updater updater(service);
    updater.checkForUpdates();
    EXPECT_THAT(service.calls, ElementsAre("start", "check"));
}

TEST(Updater, FollowsWhetherACheckCanStart) {
    FakeService service;
    Updater updater(service);
    std::vector<bool> told;
    const Subscription subscription =
        updater.observe([&] { told.push_back(updater.canCheckForUpdates()); });
    service.setCanCheck(false);
    service.setCanCheck(false);
    service.setCanCheck(true);
    EXPECT_THAT(told, ElementsAre(false, true));
}

TEST(Updater, DoesNotFollowTheSwitchesOfTheService) {
    FakeService service;
    const Updater updater(service);
    service.checks = true;
    service.downloads = true;
    service.setCanCheck(false);
    EXPECT_FALSE(updater.automaticallyChecksForUpdates());
    EXPECT_FALSE(updater.automaticallyDownloadsUpdates());
}

TEST(Updater, StoresASwitchBeforeTheServiceHearsOfIt) {
    FakeService service;
    Updater updater(service);
    std::vector<bool> seen;
    service.whenSet = [&] {
        seen.push_back(updater.automaticallyChecksForUpdates());
        seen.push_back(updater.automaticallyDownloadsUpdates());
    };
    updater.setAutomaticallyChecksForUpdates(true);
    updater.setAutomaticallyDownloadsUpdates(true);
    EXPECT_THAT(seen, ElementsAre(true, false, true, true));
    EXPECT_THAT(service.calls, ElementsAre("start", "checks on", "downloads on"));
}

TEST(Updater, ForwardsASwitchThatDoesNotDifferAndTellsNobody) {
    FakeService service;
    Updater updater(service);
    int told = 0;
    const Subscription subscription = updater.observe([&] { ++told; });
    updater.setAutomaticallyChecksForUpdates(false);
    updater.setAutomaticallyDownloadsUpdates(false);
    EXPECT_EQ(told, 0);
    updater.setAutomaticallyChecksForUpdates(true);
    updater.setAutomaticallyDownloadsUpdates(true);
    EXPECT_EQ(told, 2);
    EXPECT_THAT(service.calls,
                ElementsAre("start", "checks off", "downloads off", "checks on", "downloads on"));
}

TEST(Updater, KeepsTheDownloadSwitchWhileAutomaticChecksAreOff) {
    FakeService service;
    service.checks = true;
    Updater updater(service);
    updater.setAutomaticallyDownloadsUpdates(true);
    updater.setAutomaticallyChecksForUpdates(false);
    EXPECT_TRUE(updater.automaticallyDownloadsUpdates());
    EXPECT_TRUE(service.downloads);
    EXPECT_FALSE(service.checks);
    updater.setAutomaticallyChecksForUpdates(true);
    EXPECT_TRUE(updater.automaticallyDownloadsUpdates());
}

TEST(Updater, IsNotToldAnythingOnceItIsGone) {
    FakeService service;
    std::optional<Updater> updater(std::in_place, service);
    int told = 0;
    const Subscription subscription = updater->observe([&] { ++told; });
    updater.reset();
    service.setCanCheck(false);
    EXPECT_EQ(told, 0);
}

TEST(Updater, MayBeDroppedByOneWhoIsToldOfAChange) {
    FakeService service;
    std::optional<Updater> updater(std::in_place, service);
    const Subscription subscription = updater->observe([&] { updater.reset(); });
    service.setCanCheck(false);
    EXPECT_FALSE(updater.has_value());
}

}  // namespace
}  // namespace morvane
