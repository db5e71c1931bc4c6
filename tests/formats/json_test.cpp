#include "platform/formats/json.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/formats/json_fields.h"
#include "platform/formats/json_weight.h"

namespace morvane {
namespace {

std::string repeated(const std::string& piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t at = 0; at < times; ++at) text += piece;
    return text;
}

TEST(ReadJSON, GivesTheFieldsOfAnObject) {
    const auto document = readJSON(
        "\xEF\xBB\xBF"
        R"( {"text": "F\u00fc\ud83d\ude00", "yes": true, "whole": 12,
             "list": ["a", "b"], "nothing": null} )");
    ASSERT_TRUE(document);
    const nlohmann::json& root = document->root();
    EXPECT_EQ(asText(*find(root, "text")), "Fü😀");
    EXPECT_EQ(asBoolean(*find(root, "yes")), true);
    EXPECT_EQ(asInteger(*find(root, "whole")), 12);
    EXPECT_EQ(asTexts(*find(root, "list")), (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(find(root, "nothing")->is_null());
    EXPECT_EQ(find(root, "absent"), nullptr);
    EXPECT_EQ(find(*find(root, "list"), "a"), nullptr);
}

TEST(ReadJSON, TakesTheLaterOfTwoValuesUnderOneKey) {
    const auto document = readJSON(R"({"a": 1, "a": 2})");
    EXPECT_EQ(asInteger(*find(document->root(), "a")), 2);
}

TEST(ReadJSON, RefusesWhatIsNotJSON) {
    const std::vector<std::string> texts{
        "",      " ",        "{",           "}",          "[1,]",        "[1 2]",   "{\"a\"}",
        "nul",   "NaN",      "[NaN]",       "[Infinity]", "-Infinity",   "01",      "1.",
        "'a'",   "\"\n\"",   "\"\\x\"",     "\"a",        "// a\n1",     "[1] [2]", "[1] x",
        "1e999", "[-1e999]", "\"\\ud800\"", "{1: 2}",     "{\"a\": 1,}", "\"\\\"",
    };
    for (const std::string& text : texts) EXPECT_FALSE(readJSON(text)) << text;
}

TEST(ReadJSON, RefusesWhatIsNotUTF8) {
    EXPECT_FALSE(readJSON("\"\xff\""));
    EXPECT_FALSE(readJSON("\"\xc3\""));
    EXPECT_FALSE(readJSON("\"\xed\xa0\x80\""));
    EXPECT_FALSE(readJSON("\"\xc0\xaf\""));
    EXPECT_FALSE(readJSON("{\"\xfe\": 1}"));
}

TEST(ReadJSON, DoesNotTakeANulForTheEnd) {
    EXPECT_FALSE(readJSON(std::string("[1]\0", 4)));
    EXPECT_FALSE(readJSON(std::string("[1]\0garbage", 11)));
    EXPECT_FALSE(readJSON(std::string("\"a\0b\"", 5)));
}

TEST(ReadJSON, GoesDown64Levels) {
    const auto nested = [](const std::string& open, const std::string& close, std::size_t levels) {
        return readJSON(repeated(open, levels) + "1" + repeated(close, levels));
    };
    EXPECT_TRUE(nested("[", "]", 64));
    EXPECT_FALSE(nested("[", "]", 65));
    EXPECT_TRUE(nested("{\"a\":", "}", 64));
    EXPECT_FALSE(nested("{\"a\":", "}", 65));
    EXPECT_FALSE(nested("[", "]", 1000000));
    EXPECT_FALSE(readJSON(repeated("[", 1000000)));
    EXPECT_FALSE(readJSON(repeated("{\"a\":", 1000000)));
    EXPECT_FALSE(readJSON(repeated("]", 1000000)));
}

TEST(ReadJSON, CountsNoBracketsAndCommasInsideTexts) {
    EXPECT_TRUE(readJSON("\"" + repeated("[{,", 1000) + "\""));
    EXPECT_TRUE(readJSON("\"\\\"" + repeated("[", 1000) + "\\\\\""));
}

TEST(ReadJSON, ReadsALongText) {
    const auto document = readJSON("[\"" + std::string(50000000, 'x') + "\"]");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->root()[0].get_ptr<const std::string*>()->size(), 50000000U);
}

TEST(ReadJSON, RefusesATextOfMoreThan64Mebibytes) {
    EXPECT_TRUE(weighJSON("\"" + std::string(67108862, 'x') + "\""));
    EXPECT_FALSE(weighJSON("\"" + std::string(67108863, 'x') + "\""));
    EXPECT_FALSE(readJSON("\"" + std::string(67108863, 'x') + "\""));
}

TEST(ReadJSON, RefusesMoreThanEightMillionValues) {
    EXPECT_TRUE(weighJSON("[" + repeated("1,", 7999997) + "1]"));
    EXPECT_FALSE(weighJSON("[" + repeated("1,", 7999999) + "1]"));
    EXPECT_FALSE(readJSON("[" + repeated("[],", 8000000) + "1]"));
}

TEST(JSONFields, TakeAWholeNumberHoweverItIsWritten) {
    const auto integer = [](const std::string& text) { return asInteger(readJSON(text)->root()); };
    EXPECT_EQ(integer("12"), 12);
    EXPECT_EQ(integer("-12"), -12);
    EXPECT_EQ(integer("12.0"), 12);
    EXPECT_EQ(integer("1.2e1"), 12);
    EXPECT_EQ(integer("-0.0"), 0);
    EXPECT_EQ(integer("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(integer("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(integer("9223372036854775808"), std::nullopt);
    EXPECT_EQ(integer("-9223372036854775809"), std::nullopt);
    EXPECT_EQ(integer("18446744073709551616"), std::nullopt);
    EXPECT_EQ(integer("1e300"), std::nullopt);
    EXPECT_EQ(integer("12.5"), std::nullopt);
    EXPECT_EQ(integer("\"12\""), std::nullopt);
    EXPECT_EQ(integer("true"), std::nullopt);
    EXPECT_EQ(integer("null"), std::nullopt);
}

TEST(JSONFields, GiveNothingForAnotherType) {
    const auto document = readJSON(R"([null, 1, "a", true, [], {}, ["a", 1]])");
    const nlohmann::json& values = document->root();
    EXPECT_FALSE(asText(values[0]) || asBoolean(values[0]) || asNumber(values[0]));
    EXPECT_FALSE(asText(values[1]) || asBoolean(values[1]) || asTexts(values[1]));
    EXPECT_FALSE(asBoolean(values[2]) || asNumber(values[2]) || asTexts(values[2]));
    EXPECT_FALSE(asText(values[3]) || asNumber(values[3]));
    EXPECT_FALSE(asText(values[5]) || asTexts(values[5]) || asTexts(values[6]));
    EXPECT_EQ(asTexts(values[4]), std::vector<std::string>());
    EXPECT_EQ(asNumber(values[1]), 1.0);
}

}  // namespace
}  // namespace morvane
