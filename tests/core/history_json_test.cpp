#include "core/history_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using namespace std::chrono_literals;

constexpr auto good =
    R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":0,"summary":"s","trashed":{},)"
    R"("restored":true})";

HistoryEntry entry() {
    return {.id = "6F9619FF-8B86-4D01-B42D-00CF4FC964FF",
            .date = Instant(std::chrono::seconds(978'307'201)),
            .summary = "1 item · 5 MB",
            .trashed = {{"/a", "/Users/sam/.Trash/a"}},
            .restored = false};
}

TEST(HistoryJSON, CountsSecondsSinceTheYear2001) {
    const auto json = encodeHistory({entry()});
    ASSERT_TRUE(json);
    EXPECT_EQ(*json, R"([{"date":1.0,"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF",)"
                     R"("restored":false,"summary":"1 item · 5 MB",)"
                     R"("trashed":{"/a":"/Users/sam/.Trash/a"}}])");
}

TEST(HistoryJSON, OfNoEntriesIsAnEmptyList) {
    EXPECT_EQ(encodeHistory({}), "[]");
    EXPECT_EQ(decodeHistory("[]"), std::vector<HistoryEntry>{});
}

TEST(HistoryJSON, ComesBackAsItWas) {
    HistoryEntry other = entry();
    other.id = "00000000-0000-4000-8000-000000000001";
    other.date = Instant(std::chrono::seconds(1'795'262'400)) + 250ms;
    other.trashed = {{"/x/%25", "/t/1"}, {"/x/\"quoted\"", "/t/ü\n"}};
    other.restored = true;
    const std::vector<HistoryEntry> history{other, entry()};
    const auto json = encodeHistory(history);
    ASSERT_TRUE(json);
    EXPECT_EQ(decodeHistory(*json), history);
}

TEST(HistoryJSON, KeepsADateToTheMicrosecond) {
    for (const Instant date : {Instant(1'795'262'400s) + 1ms, Instant(1'795'262'400s) + 333ms,
                               Instant(5'049'129'600s) + 999'999us}) {
        HistoryEntry each = entry();
        each.date = date;
        const auto history = decodeHistory(encodeHistory({each}).value());
        ASSERT_TRUE(history);
        EXPECT_EQ(history->front().date, date);
    }
}

TEST(HistoryJSON, HoldsADateBackThatNoInstantReaches) {
    const auto dated = [](const std::string& date) {
        const auto history = decodeHistory(
            R"([{"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","summary":"s","trashed":{},)"
            R"("restored":false,"date":)" +
            date + "}]");
        return history ? std::optional(history->front().date) : std::nullopt;
    };
    EXPECT_EQ(dated("1e300"), Instant(9'214'646'399s));
    EXPECT_EQ(dated("63113904000"), Instant(9'214'646'399s));
    EXPECT_EQ(dated("-1e300"), Instant(-9'214'560'000s));
}

TEST(HistoryJSON, AcceptsAnEntryWithKeysInAnyOrderAndOthersBeside) {
    const auto history = decodeHistory(
        R"([{"restored":false,"new":[1],"trashed":{"/a":"/b"},"summary":"s","date":-5.5,)"
        R"("id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF"}])");
    ASSERT_TRUE(history);
    ASSERT_THAT(*history, SizeIs(1));
    EXPECT_EQ(history->front().date, Instant(std::chrono::seconds(978'307'200)) - 5500ms);
}

TEST(HistoryJSON, GivesIdentitiesInCapitals) {
    const auto history = decodeHistory(
        R"([{"id":"6f9619ff-8b86-4d01-b42d-00cf4fc964ff","date":0,"summary":"","trashed":{},)"
        R"("restored":false}])");
    ASSERT_TRUE(history);
    EXPECT_EQ(history->front().id, "6F9619FF-8B86-4D01-B42D-00CF4FC964FF");
}

TEST(HistoryJSON, FailsWholeForOneBadEntry) {
    const std::string begin = std::string("[") + good + ",";
    EXPECT_TRUE(decodeHistory(begin + good + "]"));
    const std::string bad[] = {
        "{}",
        "null",
        "5",
        "[]",
        R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":0,"summary":"s","trashed":{}})",
        R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":0,"summary":"s","trashed":{},"restored":null})",
        R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":0,"summary":"s","trashed":{},"restored":1})",
        R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":"0","summary":"s","trashed":{},"restored":true})",
        R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":0,"summary":null,"trashed":{},"restored":true})",
        R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":0,"summary":"s","trashed":[],"restored":true})",
        R"({"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":0,"summary":"s","trashed":{"/a":5},"restored":true})",
        R"({"id":"not-a-uuid","date":0,"summary":"s","trashed":{},"restored":true})",
        R"({"id":5,"date":0,"summary":"s","trashed":{},"restored":true})",
    };
    for (const std::string& each : bad) EXPECT_FALSE(decodeHistory(begin + each + "]")) << each;
}

TEST(HistoryJSON, IsNothingForWhatIsNoList) {
    for (const std::string text :
         {"", "null", "{}", "[", "[{]", "\xff", "[] []", "\"\"", "[[]]", "[null]"}) {
        EXPECT_FALSE(decodeHistory(text)) << text;
    }
    EXPECT_FALSE(decodeHistory(std::string(100'000, '[')));
}

TEST(HistoryJSON, CannotHoldWhatIsNoText) {
    HistoryEntry bad = entry();
    bad.summary = "bad\xff";
    EXPECT_FALSE(encodeHistory({entry(), bad}));
    bad = entry();
    bad.trashed = {{"/a\xff", "/b"}};
    EXPECT_FALSE(encodeHistory({bad}));
}

}  // namespace
}  // namespace morvane
