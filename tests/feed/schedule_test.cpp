#include "feed/updater_on_a_server.h"
#include "services/feed/check_schedule.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(NextCheck, IsADayAfterTheLast) {
    EXPECT_EQ(nextCheck(noon - 1h, noon), noon + 23h);
    EXPECT_EQ(nextCheck(noon, noon), noon + 24h);
}

TEST(NextCheck, IsNowWhenThereWasNoneForADay) {
    EXPECT_EQ(nextCheck(std::nullopt, noon), noon);
    EXPECT_EQ(nextCheck(noon - 24h, noon), noon);
    EXPECT_EQ(nextCheck(noon - 1000h, noon), noon);
}

TEST(NextCheck, IsADayAwayWhenTheClockWasTurnedBack) {
    EXPECT_EQ(nextCheck(noon + 10000h, noon), noon + 24h);
}

using UpdateSchedule = UpdaterOnAServer;

TEST_F(UpdateSchedule, IsOffAtFirst) {
    updater->start();
    loop.advance(72h);
    EXPECT_FALSE(updater->automaticallyChecks());
    EXPECT_FALSE(updater->automaticallyDownloads());
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(UpdateSchedule, KeepsItsSwitchesInTheDefaults) {
    updater->setAutomaticallyChecks(true);
    updater->setAutomaticallyDownloads(true);
    EXPECT_THAT(defaults.writtenKeys(),
                ElementsAre("automaticallyChecksForUpdates", "automaticallyDownloadsUpdates"));
    make();
    EXPECT_TRUE(updater->automaticallyChecks());
    EXPECT_TRUE(updater->automaticallyDownloads());
    updater->setAutomaticallyChecks(false);
    EXPECT_TRUE(updater->automaticallyDownloads());
}

TEST_F(UpdateSchedule, ChecksOnceADayWhileSwitchedOn) {
    offer("the new one");
    updater->start();
    updater->setAutomaticallyChecks(true);
    loop.advance(0s);
    settle();
    EXPECT_EQ(server.asked.size(), 1U);
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::found));
    loop.advance(24h - 1ms);
    EXPECT_TRUE(updater->canCheckForUpdates());
    loop.advance(1ms);
    settle();
    EXPECT_EQ(server.asked.size(), 2U);
    updater->setAutomaticallyChecks(false);
    loop.advance(72h);
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(server.asked.size(), 2U);
}

TEST_F(UpdateSchedule, CountsTheDayFromTheLastCheckOfAnEarlierRun) {
    defaults.stored["lastUpdateCheck"] = Instant(noon - 20h);
    defaults.stored["automaticallyChecksForUpdates"] = true;
    offer("the new one");
    updater->start();
    loop.advance(4h - 1ms);
    EXPECT_TRUE(updater->canCheckForUpdates());
    loop.advance(1ms);
    EXPECT_FALSE(updater->canCheckForUpdates());
    settle();
    EXPECT_EQ(defaults.date("lastUpdateCheck"), noon + 4h);
}

TEST_F(UpdateSchedule, CountsTheDayFromACheckThatWasAskedFor) {
    defaults.stored["automaticallyChecksForUpdates"] = true;
    defaults.stored["lastUpdateCheck"] = Instant(noon - 20h);
    offer("the new one");
    updater->start();
    check();
    loop.advance(24h - 1ms);
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(server.asked.size(), 1U);
}

TEST_F(UpdateSchedule, DoesNotRunBeforeTheStart) {
    updater->setAutomaticallyChecks(true);
    loop.advance(72h);
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_THAT(server.asked, IsEmpty());
}

TEST_F(UpdateSchedule, TellsOnlyOfANewerVersion) {
    defaults.stored["automaticallyChecksForUpdates"] = true;
    server.answers["/feed.xml"] = content(feed("100", signer.sign("x"), 1));
    updater->start();
    loop.advance(0s);
    settle();
    server.answers["/feed.xml"] = content("no feed");
    loop.advance(24h);
    settle();
    server.answers.clear();
    loop.advance(24h);
    settle();
    EXPECT_EQ(server.asked.size(), 3U);
    EXPECT_THAT(prompt.shown, IsEmpty());
}

TEST_F(UpdateSchedule, DownloadsEachVersionOnceWhenSwitchedOn) {
    defaults.stored["automaticallyChecksForUpdates"] = true;
    defaults.stored["automaticallyDownloadsUpdates"] = true;
    offer("the new one");
    updater->start();
    loop.advance(0s);
    settle();
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::ready));
    EXPECT_EQ(prompt.shown.back().file, downloads / "Morvane.dmg");
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml", "/Morvane.dmg"));
    loop.advance(24h);
    settle();
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml", "/Morvane.dmg", "/feed.xml"));
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::ready));
    server.answers["/feed.xml"] = content(feed("201", signer.sign("the new one"), 11));
    loop.advance(24h);
    settle();
    EXPECT_EQ(prompt.shown.back().file, downloads / "Morvane 2.dmg");
}

TEST_F(UpdateSchedule, OffersAVersionWhoseDownloadFailed) {
    defaults.stored["automaticallyChecksForUpdates"] = true;
    defaults.stored["automaticallyDownloadsUpdates"] = true;
    offer("the new one");
    server.answers["/Morvane.dmg"] = content("the old one");
    updater->start();
    loop.advance(0s);
    settle();
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::found));
    EXPECT_THAT(kept(), IsEmpty());
    EXPECT_EQ(download().text,
              "The download isn’t signed by the makers of Morvane, so it was not kept.");
}

TEST_F(UpdateSchedule, DownloadsNothingByItselfWhenAsked) {
    defaults.stored["automaticallyDownloadsUpdates"] = true;
    offer("the new one");
    EXPECT_EQ(check().kind, Kind::found);
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml"));
}

TEST_F(UpdateSchedule, GoesOnWithItsDownloadWhenSomethingElseIsDismissed) {
    defaults.stored["automaticallyChecksForUpdates"] = true;
    defaults.stored["automaticallyDownloadsUpdates"] = true;
    offer("the new one");
    updater->start();
    loop.advance(0s);
    ServedLoop::serveUntil([this] { return server.asked.size() == 2; });
    updater->dismiss();
    settle();
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::ready));
}

}  // namespace
}  // namespace morvane
