#include <QTcpServer>

#include "feed/updater_on_a_server.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Check = UpdaterOnAServer;

TEST_F(Check, OffersANewerVersion) {
    offer("the new one");
    const UpdateMessage message = check();
    EXPECT_EQ(message.kind, Kind::found);
    EXPECT_EQ(message.title, "Morvane 2.0 is available");
    EXPECT_EQ(message.text, "You have 1.0. The download is 1 KB.");
    EXPECT_EQ(message.notes, "New");
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::found));
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml"));
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(Check, TellsNothingOfTheUserOrTheSystem) {
    offer("the new one");
    check();
    EXPECT_THAT(server.header, HasSubstr("User-Agent: Morvane\r\n"));
    EXPECT_THAT(server.header, HasSubstr("Accept-Language: en\r\n"));
    EXPECT_THAT(server.header, HasSubstr("Accept-Encoding: identity\r\n"));
    EXPECT_THAT(server.header, Not(HasSubstr("Cookie")));
}

TEST_F(Check, NeverOffersTheSameVersion) {
    server.answers["/feed.xml"] = content(feed("100.0", signer.sign("x"), 1));
    EXPECT_EQ(check().kind, Kind::upToDate);
    EXPECT_EQ(prompt.shown.back().text, "You have 1.0, the newest version.");
}

TEST_F(Check, NeverOffersAnOlderVersion) {
    // Letter by letter it would be newer.
    server.answers["/feed.xml"] = content(feed("99", signer.sign("x"), 1));
    EXPECT_EQ(check().kind, Kind::upToDate);
    updater->download();
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml"));
}

TEST_F(Check, SaysThatAMalformedFeedCannotBeRead) {
    server.answers["/feed.xml"] = content("<rss><channel><item>");
    const UpdateMessage message = check();
    EXPECT_EQ(message.kind, Kind::failed);
    EXPECT_EQ(message.title, "Couldn’t check for updates");
    EXPECT_EQ(message.text, "The list of versions can’t be read.");
}

TEST_F(Check, SaysThatThereIsNoFeed) {
    EXPECT_EQ(check().text, "The update server doesn’t hand it out.");
}

TEST_F(Check, SaysThatAConnectionWasCut) {
    server.answers["/feed.xml"] = exactly("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n<rss>");
    EXPECT_EQ(check().text, "The update server can’t be reached, or the connection was cut.");
}

TEST_F(Check, TakesNoCutFeedForAWholeOne) {
    const std::string whole = feed("200", signer.sign("x"), 1);
    server.answers["/feed.xml"] = exactly("HTTP/1.1 200 OK\r\n\r\n" + whole.substr(0, 200));
    EXPECT_EQ(check().text, "The list of versions can’t be read.");
}

TEST_F(Check, EndsAFeedWithoutEnd) {
    server.answers["/feed.xml"] = endless();
    EXPECT_EQ(check().text, "The update server sends more than it should.");
    ServedLoop::serveUntil([this] { return server.open == 0; });
}

TEST_F(Check, RefusesAFeedOfMoreThanAMegabyteByItsHeaderAlone) {
    server.answers["/feed.xml"] = unfinished("HTTP/1.1 200 OK\r\nContent-Length: 1000001\r\n\r\n");
    EXPECT_EQ(check().text, "The update server sends more than it should.");
}

TEST_F(Check, ReadsAFeedOfAMegabyte) {
    std::string bytes = feed("200", signer.sign("x"), 1);
    bytes.append(1'000'000 - bytes.size(), '\n');
    server.answers["/feed.xml"] = content(bytes);
    EXPECT_EQ(check().kind, Kind::found);
    server.answers["/feed.xml"] = content(bytes + "\n");
    EXPECT_EQ(check().text, "The update server sends more than it should.");
}

TEST_F(Check, GivesUpAfterThirtySecondsWithoutAByte) {
    server.answers["/feed.xml"] = unfinished("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n<rss");
    updater->checkForUpdates();
    ServedLoop::serveUntil([this] { return !server.asked.empty(); });
    loop.advance(std::chrono::seconds(29));
    EXPECT_FALSE(updater->canCheckForUpdates());
    loop.advance(std::chrono::seconds(31));  // from the last byte, which came meanwhile or before
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(prompt.shown.back().text, "The update server stopped answering.");
}

TEST_F(Check, GivesUpOnAServerThatNeverAnswers) {
    QTcpServer mute;
    ASSERT_TRUE(mute.listen(QHostAddress::LocalHost));
    BundleInfo other = bundle();
    other.updateFeed = "https://127.0.0.1:" + std::to_string(mute.serverPort()) + "/";
    updater.emplace(Runtime{loop, pool}, defaults, prompt, other,
                    FeedUpdater::Options{downloads, server.trust()});
    updater->checkForUpdates();
    loop.advance(std::chrono::milliseconds(29'999));
    EXPECT_FALSE(updater->canCheckForUpdates());
    loop.advance(std::chrono::milliseconds(1));
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(prompt.shown.back().text, "The update server stopped answering.");
}

TEST_F(Check, SaysThatTheServerIsNotThere) {
    QTcpServer gone;
    ASSERT_TRUE(gone.listen(QHostAddress::LocalHost));
    BundleInfo other = bundle();
    other.updateFeed = "https://127.0.0.1:" + std::to_string(gone.serverPort()) + "/";
    gone.close();
    updater.emplace(Runtime{loop, pool}, defaults, prompt, other,
                    FeedUpdater::Options{downloads, server.trust()});
    EXPECT_EQ(check().text, "The update server can’t be reached, or the connection was cut.");
}

TEST_F(Check, AsksNothingOfAServerItDoesNotTrust) {
    const TlsServer another;
    offer("the new one");
    updater.emplace(Runtime{loop, pool}, defaults, prompt, bundle(),
                    FeedUpdater::Options{downloads, another.trust()});
    EXPECT_EQ(check().text, "The connection to the update server isn’t secure.");
    EXPECT_THAT(server.asked, IsEmpty());
}

TEST_F(Check, FollowsFiveRedirects) {
    offer("the new one");
    server.answers["/5"] = server.answers["/feed.xml"];
    server.answers["/feed.xml"] = sentOnTo(server.address("/1"));
    server.answers["/1"] = sentOnTo("/2");
    server.answers["/2"] = sentOnTo("3");
    server.answers["/3"] = sentOnTo("/4");
    server.answers["/4"] = sentOnTo("/5");
    EXPECT_EQ(check().kind, Kind::found);
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml", "/1", "/2", "/3", "/4", "/5"));
}

TEST_F(Check, FollowsNoSixthRedirect) {
    server.answers["/feed.xml"] = sentOnTo("/feed.xml");
    EXPECT_EQ(check().text, "The update server sends from one address to the next.");
    EXPECT_EQ(server.asked.size(), 6U);
}

TEST_F(Check, DoesNotFollowARedirectToHttp) {
    const PlainServer plain;
    server.answers["/feed.xml"] = sentOnTo(plain.address());
    EXPECT_EQ(check().text, "The connection to the update server isn’t secure.");
    EXPECT_EQ(plain.connections, 0);
}

TEST_F(Check, DoesNotReadAFileOfThisMachine) {
    server.answers["/feed.xml"] = sentOnTo("file:///etc/hostname");
    EXPECT_EQ(check().text, "The connection to the update server isn’t secure.");
}

TEST_F(Check, DoesNotWaitForTheEndOfARedirectsContent) {
    offer("the new one");
    server.answers["/there"] = server.answers["/feed.xml"];
    server.answers["/feed.xml"] =
        unfinished("HTTP/1.1 301 Moved\r\nLocation: /there\r\nContent-Length: 1000\r\n\r\n...");
    EXPECT_EQ(check().kind, Kind::found);
}

TEST_F(Check, SaysThatANewVersionCannotBeFetchedSafely) {
    server.answers["/feed.xml"] = content(feed("200", "", 1));
    EXPECT_EQ(check().text, "The list of versions doesn’t say how to get the new one safely.");
}

TEST_F(Check, CannotStartWhileOneIsUnderWay) {
    offer("the new one");
    std::vector<bool> told;
    const Subscription subscription =
        updater->observeCanCheck([&] { told.push_back(updater->canCheckForUpdates()); });
    EXPECT_TRUE(updater->canCheckForUpdates());
    updater->checkForUpdates();
    EXPECT_FALSE(updater->canCheckForUpdates());
    updater->checkForUpdates();
    settle();
    EXPECT_THAT(told, ElementsAre(false, true));
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml"));
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::found));
}

TEST_F(Check, IsDroppedWithTheUpdater) {
    server.answers["/feed.xml"] = endless();
    updater->checkForUpdates();
    ServedLoop::serveUntil([this] { return !server.asked.empty(); });
    updater.reset();
    ServedLoop::serveUntil([this] { return server.open == 0; });
    loop.advance(std::chrono::minutes(1));
    EXPECT_THAT(prompt.shown, IsEmpty());
}

class BundleWithoutUpdates : public UpdaterOnAServer,
                             public testing::WithParamInterface<const char*> {};

TEST_P(BundleWithoutUpdates, CanNeverCheckAndAsksNothing) {
    BundleInfo lacking = bundle();
    const std::string lack = GetParam();
    if (lack == "feed") lacking.updateFeed.reset();
    if (lack == "secure feed") lacking.updateFeed->erase(4, 1);
    if (lack == "host") lacking.updateFeed = "https:///feed.xml";
    if (lack == "key") lacking.updateKey.reset();
    if (lack == "whole key") lacking.updateKey->erase(0, 4);
    if (lack == "version") lacking.version.reset();
    if (lack == "comparable version") lacking.version = "1.0 beta";
    updater.emplace(Runtime{loop, pool}, defaults, prompt, lacking,
                    FeedUpdater::Options{downloads, server.trust()});
    updater->setAutomaticallyChecks(true);
    updater->start();
    loop.advance(std::chrono::hours(72));
    updater->checkForUpdates();
    EXPECT_FALSE(updater->canCheckForUpdates());
    EXPECT_THAT(defaults.writtenKeys(), ElementsAre("automaticallyChecksForUpdates"));
    EXPECT_EQ(server.open, 0);
    EXPECT_THAT(prompt.shown, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, BundleWithoutUpdates,
                         testing::Values("feed", "secure feed", "host", "key", "whole key",
                                         "version", "comparable version"));

}  // namespace
}  // namespace morvane
