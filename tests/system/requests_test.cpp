// The lines that are understood and the sentences for those that are not.

#include <gmock/gmock.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

using Requests = SystemTest;
using testing::HasSubstr;

TEST_F(Requests, AnswersEachLineInItsOrder) {
    for (int number = 0; number < 50; ++number) {
        driver().send({{"call", "sizeText"}, {"args", {{"mb", number}}}});
    }
    EXPECT_EQ(driver().answer().at("result"), "1 KB");
    for (int number = 1; number < 50; ++number) {
        EXPECT_EQ(driver().answer().at("result"), std::to_string(number) + " MB");
    }
}

TEST_F(Requests, PassesOverEmptyLines) {
    EXPECT_EQ(driver().askLine("\n\n  \t\r\n{\"get\":[\"scanPhase\"]}\n\n"),
              Json({{"scanPhase", "idle"}}));
    EXPECT_EQ(driver().get("freedMB"), 0);
}

TEST_F(Requests, TakesALineThatEndsWithACarriageReturn) {
    EXPECT_EQ(driver().askLine("{\"get\":[\"scanPhase\"]}\r"), Json({{"scanPhase", "idle"}}));
}

TEST_F(Requests, AnswersALineThatIsNoRequestWithOneSentence) {
    for (const std::string line : {"nonsense",
                                   "[]",
                                   "12",
                                   "\"call\"",
                                   "null",
                                   "true",
                                   "{}",
                                   "{",
                                   "{\"call\":\"sizeText\"",
                                   "{\"unheard\":1}",
                                   "{\"call\":1}",
                                   "{\"call\":null}",
                                   "{\"get\":\"scanPhase\"}",
                                   "{\"get\":[1]}",
                                   "{\"get\":{}}",
                                   "{\"set\":[]}",
                                   "{\"set\":null}",
                                   "{\"wait\":false}",
                                   "{\"wait\":1}",
                                   "{\"effects\":false}",
                                   "{\"effects\":null}",
                                   "{\"host\":[]}",
                                   "{\"advance\":\"1\"}",
                                   "{\"advance\":null}",
                                   "{\"get\":[],\"set\":{}}",
                                   "{\"call\":\"refreshDisk\",\"get\":[]}",
                                   "{\"args\":{}}",
                                   "{\"args\":{},\"wait\":true}",
                                   "{\"call\":\"refreshDisk\",\"args\":[]}",
                                   "{\"call\":\"refreshDisk\",\"args\":null}",
                                   "{\"call\":\"refreshDisk\",\"wait\":1}",
                                   "{\"call\":\"refreshDisk\",\"wait\":null}",
                                   "{} {}",
                                   "{\"get\":[]}x"}) {
        const Json answer = driver().askLine(line);
        ASSERT_TRUE(answer.contains("error")) << line << " " << answer;
        EXPECT_EQ(answer.size(), 1U) << line;
        EXPECT_NE(answer.at("error"), "") << line;
    }
    EXPECT_EQ(driver().ask({{"get", Json::array()}}), Json::object());
}

TEST_F(Requests, NamesWhatItDoesNotKnow) {
    EXPECT_THAT(driver().error({{"call", "startScann"}}), HasSubstr("startScann"));
    EXPECT_THAT(driver().error({{"get", {"scanPhase", "scanFase"}}}), HasSubstr("scanFase"));
    EXPECT_THAT(driver().error({{"set", {{"colour", 1}}}}), HasSubstr("colour"));
    EXPECT_THAT(driver().error({{"sett", {{"colour", 1}}}}), HasSubstr("sett"));
    EXPECT_THAT(driver().error({{"host", {{"active", 1}}}}), HasSubstr("active"));
}

TEST_F(Requests, NamesTheArgumentThatIsMissingUnknownOrOfAWrongType) {
    EXPECT_THAT(driver().error({{"call", "startScan"}}), HasSubstr("showOverview"));
    EXPECT_THAT(driver().error({{"call", "startScan"}, {"args", {{"showOverview", "yes"}}}}),
                HasSubstr("showOverview"));
    EXPECT_THAT(driver().error({{"call", "startScan"}, {"args", {{"showOverview", nullptr}}}}),
                HasSubstr("showOverview"));
    EXPECT_THAT(driver().error({{"call", "cancelScan"}, {"args", {{"now", true}}}}),
                HasSubstr("now"));
    EXPECT_THAT(
        driver().error({{"call", "scanApps"}, {"args", {{"force", true}, {"extra", nullptr}}}}),
        HasSubstr("extra"));
    EXPECT_THAT(driver().error({{"call", "applyPreset"}, {"args", {{"preset", "every"}}}}),
                HasSubstr("preset"));
    EXPECT_THAT(driver().error({{"call", "sizeText"}, {"args", {{"mb", "1"}}}}), HasSubstr("mb"));
    EXPECT_THAT(driver().error({{"call", "measure"}, {"args", {{"url", "relative"}}}}),
                HasSubstr("url"));
    EXPECT_THAT(driver().error({{"call", "totalSize"}, {"args", {{"urls", {"/a", 2}}}}}),
                HasSubstr("urls"));
    EXPECT_EQ(driver().get("scanPhase"), "idle");
    EXPECT_EQ(driver().get("tasks"), Json::array());
}

TEST_F(Requests, LetsAnArgumentThatMayBeNullBeLeftOut) {
    EXPECT_EQ(driver().call("usedWords"), "");
    EXPECT_EQ(driver().call("usedWords", {{"date", nullptr}}), "");
    EXPECT_EQ(driver().call("relativeDayText", {{"now", "2026-06-15T12:00:00Z"}}), "Never opened");
    EXPECT_EQ(driver().call("sweep", {{"items", Json::array()}}), nullptr);
    EXPECT_EQ(driver().call("sweep", {{"items", Json::array()}, {"label", nullptr}}), nullptr);
    driver().error({{"call", "sweep"}, {"args", {{"items", Json::array()}, {"label", 1}}}});
    driver().error({{"call", "sweep"}, {"args", {{"label", "a"}}}});
}

TEST_F(Requests, GoesOnAfterALineThatIsNotUTF8OrHoldsANul) {
    using namespace std::string_literals;
    for (const std::string& line :
         {"\xff\xfe\x00\x01"s, "{\"get\":[\"\xc3\x28\"]}"s, "{\"get\":[\"\0\"]}"s, "\0"s,
          "{\"set\":{\"appQuery\":\"\xed\xa0\x80\"}}"s, "{\"set\":{\"appQuery\":\"\\ud800\"}}"s}) {
        EXPECT_TRUE(driver().askLine(line).contains("error"));
    }
    EXPECT_EQ(driver().get("appQuery"), "");
}

TEST_F(Requests, TakesTextWithEveryCharacterThatJSONCanSpell) {
    driver().askLine(R"({"set":{"appQuery":"\u0000 \ud83e\udd8a \n \" é"}})");
    EXPECT_EQ(driver().get("appQuery"), std::string("\0 🦊 \n \" é", 13));
}

TEST_F(Requests, RefusesDeepNestingOfAnyShape) {
    for (const int depth : {65, 1000, 1'000'000}) {
        const auto levels = static_cast<std::size_t>(depth);
        EXPECT_TRUE(driver().askLine(std::string(levels, '[')).contains("error"));
        std::string objects;
        for (int level = 0; level < depth; ++level) objects += "{\"set\":";
        EXPECT_TRUE(driver().askLine(objects).contains("error"));
        EXPECT_TRUE(driver()
                        .askLine("{\"call\":\"sizeText\",\"args\":" + std::string(levels, '[') +
                                 std::string(levels, ']') + "}")
                        .contains("error"));
    }
    EXPECT_EQ(driver().get("scanPhase"), "idle");
}

TEST_F(Requests, ReadsALongLineAndRefusesOneBeyondAllMeasure) {
    std::string text(2'000'000, 'x');
    driver().set({{"appQuery", text}});
    EXPECT_EQ(driver().get("appQuery").get<std::string>().size(), 2'000'000U);
    text.assign((std::size_t{64} << 20) + 1, 'x');
    EXPECT_TRUE(driver().askLine("{\"set\":{\"appQuery\":\"" + text + "\"}}").contains("error"));
    driver().set({{"appQuery", "short"}});
    EXPECT_EQ(driver().get("appQuery"), "short");
}

TEST_F(Requests, KeepsTheSentenceOfAnErrorShort) {
    const std::string name(100'000, 'n');
    EXPECT_LT(driver().error({{"call", name}}).size(), 300U);
    EXPECT_LT(driver().error({{"get", {name}}}).size(), 300U);
    EXPECT_LT(driver().error({{"set", {{name, 1}}}}).size(), 300U);
    EXPECT_LT(driver().error({{"call", "cancelScan"}, {"args", {{name, 1}}}}).size(), 300U);
    EXPECT_LT(driver().error({{"call", "sweep"}, {"args", {{"items", {name}}}}}).size(), 300U);
    EXPECT_LT(driver().error({{name, 1}}).size(), 300U);
}

TEST_F(Requests, CountsTheLaterOfTwoEqualKeys) {
    EXPECT_EQ(driver().askLine(R"({"get":["freedMB"],"get":["scanPhase"]})"),
              Json({{"scanPhase", "idle"}}));
}

TEST_F(Requests, ForgetsWhatDoesNotExistOnlyWhereTheOperationDoes) {
    driver().error({{"call", "sweep"}, {"args", {{"items", {"caches"}}}}});
    driver().error(
        {{"call", "toggleGroup"}, {"args", {{"group", "System Crumbs"}, {"state", "on"}}}});
    driver().error({{"call", "uninstall"}, {"args", {{"app", "/Applications/None.app"}}}});
    EXPECT_EQ(driver().call("restore", {{"entry", "no such entry"}}), nullptr);
    EXPECT_EQ(driver().call("removeIgnoredFolder", {{"path", "/none"}}), nullptr);
    driver().call("toggleSweepItem", {{"id", "none"}});
    driver().call("toggleDevItem", {{"id", "nothing"}});
    driver().call("toggleExpanded", {{"id", "nowhere"}});
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"none"}));
    EXPECT_EQ(driver().get("devSelection"), Json::array({"nothing"}));
    EXPECT_EQ(driver().get("expandedSweepItems"), Json::array({"nowhere"}));
    driver().call("toggleSweepItem", {{"id", "none"}});
    EXPECT_EQ(driver().get("sweepSelection"), Json::array());
}

}  // namespace
}  // namespace morvane::test
