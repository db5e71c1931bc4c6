#include <sys/stat.h>

#include "feed/updater_on_a_server.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class DownloadOfAnUpdate : public UpdaterOnAServer {
protected:
    // What comes of it when the server answers so in place of the file of `length` bytes.
    UpdateMessage downloadOf(std::size_t length, TlsServer::Answer answer) {
        server.answers["/feed.xml"] = content(feed("200", signer.sign("the new one"), length));
        server.answers["/Morvane.dmg"] = std::move(answer);
        EXPECT_EQ(check().kind, Kind::found);
        return download();
    }
};

TEST_F(DownloadOfAnUpdate, SaysWhereTheVerifiedFileLies) {
    offer("the new one");
    check();
    const UpdateMessage message = download();
    EXPECT_EQ(message.kind, Kind::ready);
    EXPECT_EQ(message.title, "Morvane 2.0 is downloaded");
    EXPECT_EQ(message.file, downloads / "Morvane.dmg");
    EXPECT_THAT(kept(), ElementsAre(Pair("Morvane.dmg", "the new one")));
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml", "/Morvane.dmg"));
    struct stat status{};
    ASSERT_EQ(::stat(message.file->c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(DownloadOfAnUpdate, FetchesManyPieces) {
    std::string bytes;
    for (int number = 0; bytes.size() < 3'000'000; ++number) bytes += std::to_string(number) + ",";
    offer(bytes);
    check();
    EXPECT_EQ(download().kind, Kind::ready);
    EXPECT_EQ(kept(), (std::map<std::string, std::string>{{"Morvane.dmg", bytes}}));
    double fraction = -1;
    for (std::size_t at = 1; at + 1 < prompt.shown.size(); ++at) {
        ASSERT_EQ(prompt.shown[at].kind, Kind::downloading);
        ASSERT_GT(prompt.shown[at].fraction, fraction);
        fraction = prompt.shown[at].fraction;
    }
    EXPECT_EQ(fraction, 1);
    EXPECT_LE(prompt.shown.size(), 103U);
}

TEST_F(DownloadOfAnUpdate, FetchesContentWithoutALength) {
    const std::string bytes(3'000'000, 'x');
    offer(bytes);
    server.answers["/Morvane.dmg"] = exactly("HTTP/1.1 200 OK\r\n\r\n" + bytes);
    check();
    EXPECT_EQ(download().kind, Kind::ready);
    EXPECT_EQ(kept(), (std::map<std::string, std::string>{{"Morvane.dmg", bytes}}));
}

TEST_F(DownloadOfAnUpdate, ReplacesNothing) {
    std::filesystem::create_directories(downloads);
    std::ofstream(downloads / "Morvane.dmg") << "mine";
    std::filesystem::create_symlink("/nowhere", downloads / "Morvane 2.dmg");
    offer("the new one");
    check();
    EXPECT_EQ(download().file, downloads / "Morvane 3.dmg");
    EXPECT_THAT(kept(), ElementsAre(Pair("Morvane 2.dmg", ""), Pair("Morvane 3.dmg", "the new one"),
                                    Pair("Morvane.dmg", "mine")));
}

TEST_F(DownloadOfAnUpdate, KeepsNothingThatAnotherSigned) {
    const UpdateMessage message = downloadOf(11, content("the old one"));
    EXPECT_EQ(message.kind, Kind::failed);
    EXPECT_EQ(message.title, "Couldn’t download Morvane 2.0");
    EXPECT_EQ(message.text,
              "The download isn’t signed by the makers of Morvane, so it was not kept.");
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(DownloadOfAnUpdate, KeepsNothingThatWasCut) {
    const UpdateMessage message =
        downloadOf(11, exactly("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\nthe new"));
    EXPECT_EQ(message.text, "The update server can’t be reached, or the connection was cut.");
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(DownloadOfAnUpdate, KeepsNothingThatIsShorterThanTheFeedSays) {
    // Not even when its signature would be right.
    const UpdateMessage message = downloadOf(12, content("the new one"));
    EXPECT_EQ(message.text, "The download is shorter than it should be.");
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(DownloadOfAnUpdate, KeepsNothingThatIsLongerThanTheFeedSays) {
    const UpdateMessage message = downloadOf(10, content("the new one"));
    EXPECT_EQ(message.text, "The update server sends more than it should.");
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(DownloadOfAnUpdate, KeepsNothingThatTurnsOutLongerThanTheFeedSays) {
    const UpdateMessage message = downloadOf(10, exactly("HTTP/1.1 200 OK\r\n\r\nthe new one"));
    EXPECT_EQ(message.text, "The update server sends more than it should.");
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(DownloadOfAnUpdate, EndsOneWithoutEnd) {
    const UpdateMessage message = downloadOf(2'000'000, endless());
    EXPECT_EQ(message.text, "The update server sends more than it should.");
    EXPECT_THAT(kept(), IsEmpty());
    ServedLoop::serveUntil([this] { return server.open == 0; });
}

TEST_F(DownloadOfAnUpdate, IsNotBegunForMoreThan500MB) {
    server.answers["/feed.xml"] = content(feed("200", signer.sign("x"), 500'000'001));
    EXPECT_EQ(check().text, "The list of versions doesn’t say how to get the new one safely.");
    updater->download();
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml"));
}

TEST_F(DownloadOfAnUpdate, IsNotSentOnToHttp) {
    const PlainServer plain;
    const UpdateMessage message = downloadOf(11, sentOnTo(plain.address()));
    EXPECT_EQ(message.text, "The connection to the update server isn’t secure.");
    EXPECT_EQ(plain.connections, 0);
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(DownloadOfAnUpdate, CountsTheSilenceFromEachPieceOn) {
    offer("the new one");
    QSslSocket* connection = nullptr;
    server.answers["/Morvane.dmg"] = [&](QSslSocket& asked) {
        connection = &asked;
        asked.write("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\nthe");
    };
    check();
    updater->download();
    const auto received = [this](double bytes) {
        ServedLoop::serveUntil([&] { return prompt.shown.back().fraction == bytes / 11; });
    };
    received(3);
    loop.advance(std::chrono::seconds(29));
    connection->write(" new");
    received(7);
    loop.advance(std::chrono::milliseconds(29'999));
    EXPECT_EQ(prompt.shown.back().kind, Kind::downloading);
    loop.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(prompt.shown.back().text, "The update server stopped answering.");
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(DownloadOfAnUpdate, SaysThatItCannotBeSaved) {
    std::ofstream(downloads) << "a file where the folder should be";
    const UpdateMessage message = downloadOf(11, content("the new one"));
    EXPECT_EQ(message.text, "The download can’t be saved.");
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml"));
}

TEST_F(DownloadOfAnUpdate, StopsWhenItIsDismissed) {
    offer("the new one");
    server.answers["/Morvane.dmg"] = unfinished("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\nthe");
    check();
    updater->download();
    ServedLoop::serveUntil([this] { return prompt.shown.back().fraction > 0; });
    EXPECT_EQ(kept().size(), 1U);
    updater->dismiss();
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_THAT(kept(), IsEmpty());
    updater->download();
    EXPECT_THAT(prompt.kinds(), ElementsAre(Kind::found, Kind::downloading, Kind::downloading));
}

TEST_F(DownloadOfAnUpdate, IsNotBegunOnceTheOfferIsDismissed) {
    offer("the new one");
    check();
    updater->dismiss();
    updater->download();
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_THAT(server.asked, ElementsAre("/feed.xml"));
}

TEST_F(DownloadOfAnUpdate, LeavesNothingWhenTheUpdaterGoes) {
    offer("the new one");
    check();
    updater->download();
    ServedLoop::serveUntil([this] { return prompt.shown.back().fraction == 1; });
    updater.reset();
    // Its signature may be looked at meanwhile; that ends with the pool's work.
    ServedLoop::serveUntil([this] { return kept().empty(); });
    EXPECT_EQ(prompt.shown.back().kind, Kind::downloading);
}

}  // namespace
}  // namespace morvane
