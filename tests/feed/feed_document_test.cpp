#include "services/feed/feed_document.h"

#include <gmock/gmock.h>
#include <random>

#include "services/feed/feed_choice.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

std::string feedOf(const std::string& items) {
    return R"(<?xml version="1.0" encoding="utf-8"?><rss version="2.0" xmlns:s="urn:s"><channel>)" +
           items + "</channel></rss>";
}

const std::string whole = feedOf(
    R"(<title>Versions</title><item><title>2.0</title>
       <description><![CDATA[ New:
 - fast & small ]]></description>
       <enclosure url="https://example.org/a.dmg?b=1&amp;c=2" length="12" s:version="200"
         s:shortVersionString="2.0" s:edSignature="AAAA" type="application/octet-stream"/></item>
       <item><s:version> 100 </s:version><s:shortVersionString>1.0</s:shortVersionString>
         <enclosure url="https://example.org/b.dmg" length="many"/></item>)");

TEST(FeedDocument, ListsItsVersions) {
    EXPECT_THAT(readFeed(whole),
                Optional(ElementsAre(FeedItem{.version = "200",
                                              .shownVersion = "2.0",
                                              .notes = "New:\n - fast & small",
                                              .address = "https://example.org/a.dmg?b=1&c=2",
                                              .signature = "AAAA",
                                              .length = 12},
                                     FeedItem{.version = "100",
                                              .shownVersion = "1.0",
                                              .address = "https://example.org/b.dmg"})));
}

TEST(FeedDocument, MayListNothing) {
    EXPECT_THAT(readFeed(feedOf("")), Optional(IsEmpty()));
    EXPECT_THAT(readFeed("<rss/>"), Optional(IsEmpty()));
}

TEST(FeedDocument, MustBeWellFormedToItsEnd) {
    for (const std::string text :
         {"", "no feed", "<html></html>", "<rss>", "<rss></rss>x", "<rss></rss><rss/>", "<rss/",
          "<rss><a:b/></rss>", "<rss>\xff</rss>", "<rss>&nothing;</rss>"}) {
        EXPECT_EQ(readFeed(text), std::nullopt) << text;
    }
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(readFeed(whole.substr(0, length)), std::nullopt) << length;
    }
}

TEST(FeedDocument, HasNoTypeAndNoEntitiesOfItsOwn) {
    EXPECT_EQ(readFeed("<!DOCTYPE rss><rss/>"), std::nullopt);
    EXPECT_EQ(readFeed(R"(<!DOCTYPE rss [<!ENTITY a "b">]><rss>&a;</rss>)"), std::nullopt);
    EXPECT_EQ(readFeed(R"(<!DOCTYPE rss SYSTEM "file:///etc/passwd"><rss/>)"), std::nullopt);
}

TEST(FeedDocument, IsNeitherDeepNorEndless) {
    const auto nested = [](int depth) {
        std::string text;
        for (int level = 1; level < depth; ++level) text = "<a>" + text + "</a>";
        return "<rss>" + text + "</rss>";
    };
    EXPECT_TRUE(readFeed(nested(32)).has_value());
    EXPECT_FALSE(readFeed(nested(33)).has_value());
    std::string items;
    for (int count = 0; count < 1000; ++count) items += "<item/>";
    EXPECT_TRUE(readFeed(feedOf(items)).has_value());
    EXPECT_FALSE(readFeed(feedOf(items + "<item/>")).has_value());
}

TEST(FeedDocument, HasNoTagThatKeepsTheReaderBusy) {
    std::string attributes;
    for (int count = 0; count < 100000; ++count) attributes += " a" + std::to_string(count) + "=''";
    EXPECT_EQ(readFeed("<rss" + attributes + "/>"), std::nullopt);
    EXPECT_EQ(readFeed("<rss a='>'" + attributes + "/>"), std::nullopt);
    // Text may be long, and comments.
    const std::string text(10000, '<');
    EXPECT_TRUE(readFeed("<rss><![CDATA[" + text + "]]><!--" + text + "--></rss>").has_value());
}

TEST(FeedDocument, KeepsTextsPlainAndShort) {
    const auto items =
        readFeed(feedOf("<item><description>a\t&#x85;b&lt;b&gt;\n" + std::string(20000, 'c') +
                        "</description><version>1\n&#x202e;2</version></item>"));
    ASSERT_TRUE(items.has_value());
    EXPECT_EQ(items->at(0).notes, "a b<b>\n" + std::string(9993, 'c') + "…");
    EXPECT_EQ(items->at(0).version, "12");
}

TEST(FeedDocument, SurvivesAnyChange) {
    std::mt19937_64 random(20010101);
    for (int round = 0; round < 2000; ++round) {
        std::string text = whole;
        for (auto changes = 1 + random() % 5; changes > 0; --changes) {
            const std::size_t at = random() % text.size();
            switch (random() % 4) {
                case 0:
                    text[at] = static_cast<char>(random());
                    break;
                case 1:
                    text.erase(at, 1 + random() % 20);
                    break;
                case 2:
                    text.insert(at, text.substr(random() % text.size(), random() % 60));
                    break;
                default:
                    text.insert(at, 1, "<>&\"'![]/"[random() % 9]);
                    break;
            }
        }
        if (const auto items = readFeed(text)) (void)chooseUpdate(*items, "100");
    }
}

class FeedChoiceOf : public testing::Test {
protected:
    static FeedItem item(const std::string& version) {
        return {.version = version,
                .address = "https://example.org/a.dmg",
                .signature = std::string(86, 'A') + "==",
                .length = 1};
    }
};

TEST_F(FeedChoiceOf, TakesTheNewestWhateverItsPlace) {
    const auto choice = chooseUpdate({item("1.9"), item("1.11"), item("1.10")}, "1.8");
    ASSERT_TRUE(std::holds_alternative<UpdateOffer>(choice));
    EXPECT_EQ(std::get<UpdateOffer>(choice).version, "1.11");
    EXPECT_EQ(std::get<UpdateOffer>(choice).shownVersion, "1.11");
}

TEST_F(FeedChoiceOf, PassesOverWhatCannotBeFetched) {
    FeedItem http = item("5");
    http.address = "http://example.org/a.dmg";
    FeedItem unsignedOne = item("6");
    unsignedOne.signature.erase(0, 4);
    FeedItem endless = item("7");
    endless.length = 0;
    FeedItem large = item("8");
    large.length = 500'000'001;
    const auto choice = chooseUpdate({item("2"), http, unsignedOne, endless, large}, "1");
    ASSERT_TRUE(std::holds_alternative<UpdateOffer>(choice));
    EXPECT_EQ(std::get<UpdateOffer>(choice).version, "2");
    for (const FeedItem& one : {http, unsignedOne, endless, large}) {
        EXPECT_TRUE(std::holds_alternative<NothingUsable>(chooseUpdate({one}, "1")));
    }
}

TEST_F(FeedChoiceOf, SaysThatNothingIsNewer) {
    EXPECT_TRUE(std::holds_alternative<NothingNewer>(chooseUpdate({}, "1")));
    EXPECT_TRUE(std::holds_alternative<NothingNewer>(chooseUpdate({item("1"), item("0.9")}, "1")));
    EXPECT_TRUE(std::holds_alternative<NothingUsable>(chooseUpdate({item("next")}, "1")));
}

}  // namespace
}  // namespace morvane
