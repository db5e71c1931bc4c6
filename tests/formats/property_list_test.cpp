#include "platform/formats/property_list.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>

#include "formats/binary_list.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;
using Dictionary = PropertyList::Dictionary;
using Array = PropertyList::Array;

Instant at(std::int64_t seconds, std::int64_t microseconds = 0) {
    return Instant(std::chrono::seconds(seconds) + std::chrono::microseconds(microseconds));
}

TEST(ReadPropertyList, ReadsEveryKindFromXML) {
    const auto list = readPropertyList(xmlList(R"(<dict>
        <!-- <key>never</key> -->
        <key>text</key><string>F&#252;&#xDF;e &amp; &lt;b&gt;</string>
        <key>quoted</key><string><![CDATA[<raw> & "so"]]></string>
        <key>yes</key><true/>
        <key>no</key><false/>
        <key>small</key><integer>-5</integer>
        <key>large</key><integer>9223372036854775807</integer>
        <key>beyond</key><integer>18446744073709551615</integer>
        <key>real</key><real>1.5</real>
        <key>date</key><date>2024-11-03T18:22:05Z</date>
        <key>data</key><data>
        AAEC/w==
        </data>
        <key>empty</key><string></string>
        <key>array</key><array><string>a</string><integer>1</integer></array>
        <key>dictionary</key><dict/>
        </dict>)"));
    ASSERT_TRUE(list);
    ASSERT_TRUE(list->dictionary());
    EXPECT_EQ(list->dictionary()->size(), 13U);
    EXPECT_EQ(*list->find("text")->text(), "Füße & <b>");
    EXPECT_EQ(*list->find("quoted")->text(), "<raw> & \"so\"");
    EXPECT_EQ(list->find("yes")->boolean(), true);
    EXPECT_EQ(list->find("no")->boolean(), false);
    EXPECT_EQ(list->find("small")->integer(), -5);
    EXPECT_EQ(list->find("large")->integer(), INT64_MAX);
    EXPECT_EQ(list->find("beyond")->integer(), std::nullopt);
    EXPECT_EQ(list->find("beyond")->number(), 18446744073709551615.0);
    EXPECT_EQ(list->find("real")->number(), 1.5);
    EXPECT_EQ(list->find("date")->date(), at(1730658125));
    EXPECT_EQ(*list->find("data")->data(), std::string("\0\1\2\xff", 4));
    EXPECT_EQ(*list->find("empty")->text(), "");
    EXPECT_EQ(*list->find("array")->array(), (Array{{std::string("a")}, {std::int64_t{1}}}));
    EXPECT_TRUE(list->find("dictionary")->dictionary()->empty());
}

TEST(ReadPropertyList, ReadsEveryKindFromTheBinaryForm) {
    const auto list = readPropertyList(binaryList({
        container(0xA, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
        "\x08",
        "\x09",
        "\x10\xff",                                           // one byte has no sign
        "\x13\xff\xff\xff\xff\xff\xff\xff\xfb",               // eight have
        "\x14" + bigEndian(0, 8) + "\xff" + bigEndian(0, 7),  // sixteen hold what is beyond
        "\x22\x3f\xc0" + bigEndian(0, 2),                     // 1.5 in four bytes
        "\x23\x3f\xf8" + bigEndian(0, 6),                     // and in eight
        "\x33\x3f\xf8" + bigEndian(0, 6),                     // 1.5 seconds into 2001
        std::string("\x42\0\xff", 3),
        "\x53"
        "abc",
        std::string("\x63\0\xdf\xd8\x3d\xde\0", 7),
        "\x80\x07",
    }));
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->array(), (Array{{false},
                                     {true},
                                     {std::int64_t{255}},
                                     {std::int64_t{-5}},
                                     {std::uint64_t{18374686479671623680U}},
                                     {1.5},
                                     {1.5},
                                     {at(978307201, 500000)},
                                     {PropertyList::Data{std::string("\0\xff", 2)}},
                                     {std::string("abc")},
                                     {std::string("ß😀")},
                                     {PropertyList::Reference{7}}}));
}

TEST(ReadPropertyList, GivesNothingForAValueOfAnotherKind) {
    const PropertyList text{std::string("1")};
    EXPECT_FALSE(text.boolean() || text.integer() || text.number() || text.date());
    EXPECT_FALSE(text.data() || text.array() || text.dictionary() || text.find("1"));
    EXPECT_FALSE(PropertyList{true}.integer() || PropertyList{true}.number());
    EXPECT_FALSE(PropertyList{1.0}.integer() || PropertyList{std::int64_t{1}}.boolean());
    EXPECT_FALSE(PropertyList{Dictionary()}.find("absent"));
}

TEST(ReadPropertyList, PassesOverAByteOrderMark) {
    EXPECT_TRUE(readPropertyList("\xEF\xBB\xBF" + xmlList("<dict/>")));
}

TEST(ReadPropertyList, TakesTheLaterOfTwoValuesUnderOneKey) {
    const auto xml =
        readPropertyList(xmlList("<dict><key>a</key><true/><key>a</key><false/></dict>"));
    EXPECT_EQ(xml->find("a")->boolean(), false);
    const auto binary = readPropertyList(binaryList({container(0xD, {1, 1, 2, 3}),
                                                     "\x51"
                                                     "a",
                                                     "\x09", "\x08"}));
    EXPECT_EQ(binary->find("a")->boolean(), false);
}

TEST(ReadPropertyList, HoldsNoTextThatIsNotUTF8) {
    const auto xml = readPropertyList(
        xmlList("<array><string>a\xff</string><string>\xed\xa0\x80</string></array>"));
    EXPECT_EQ(*xml->array(), (Array{{}, {}}));
    const auto binary = readPropertyList(binaryList({container(0xA, {1}),
                                                     "\x52"
                                                     "a\xff"}));
    EXPECT_EQ(*binary->array(), (Array{{}}));
}

TEST(ReadPropertyList, LeavesOutAKeyThatIsNotUTF8) {
    const auto list = readPropertyList(binaryList({container(0xD, {1, 2, 3, 3}), "\x51\xff",
                                                   "\x51"
                                                   "b",
                                                   "\x09"}));
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->dictionary(), (Dictionary{{"b", {true}}}));
}

TEST(ReadPropertyList, EndsATextAtANul) {
    const auto list = readPropertyList(binaryList(
        {container(0xA, {1, 2}), std::string("\x53\x61\0b", 4), std::string("\x63\0c\0\0\0d", 7)}));
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->array(), (Array{{std::string("a")}, {std::string("c")}}));
}

TEST(ReadPropertyList, HoldsNoDateThatIsNoNumber) {
    for (const std::uint64_t bits : {0x7ff8000000000000U,  // not a number
                                     0x7ff0000000000000U,  // infinity
                                     0xfff0000000000000U}) {
        const auto list = readPropertyList(binaryList({"\x33" + bigEndian(bits, 8)}));
        ASSERT_TRUE(list) << std::hex << bits;
        EXPECT_TRUE(std::holds_alternative<std::monostate>(list->value)) << std::hex << bits;
    }
}

TEST(ReadPropertyList, HoldsADateBackThatLiesTooFarOff) {
    const Instant first = at(-9214560000);
    const Instant last = at(9214646399);
    const std::vector<std::pair<std::uint64_t, Instant>> far{
        {0x7fefffffffffffffU, last},   // the largest double
        {0xc2a0000000000000U, first},  // year -277000
        {0x422cd51e40000000U, last},   // 61,914,161,152 s: year 3962
    };
    for (const auto& [bits, held] : far) {
        const auto list = readPropertyList(binaryList({"\x33" + bigEndian(bits, 8)}));
        ASSERT_TRUE(list) << std::hex << bits;
        EXPECT_EQ(list->date(), held) << std::hex << bits;
    }
    const auto ancient = readPropertyList(xmlList("<date>0001-01-01T00:00:00Z</date>"));
    ASSERT_TRUE(ancient);
    EXPECT_EQ(ancient->date(), first);
    const auto old = readPropertyList(xmlList("<date>1700-01-01T00:00:00Z</date>"));
    EXPECT_EQ(old->date(), at(-8520336000));
    const auto late = readPropertyList(xmlList("<date>2150-01-01T00:00:00Z</date>"));
    EXPECT_EQ(late->date(), at(5680281600));
}

TEST(WriteBinaryPropertyList, IsReadBackAsItWas) {
    const PropertyList list{Dictionary{
        {"", {std::string()}},
        {"Füße", {std::string("ASCII")}},
        {"😀", {std::string("häßlich 😀 \xEF\xBF\xBD")}},
        {"long", {std::string(70000, 'x')}},
        {"yes", {true}},
        {"no", {false}},
        {"integers",
         {Array{{std::int64_t{0}},
                {std::int64_t{255}},
                {std::int64_t{256}},
                {std::int64_t{65536}},
                {std::int64_t{4294967296}},
                {std::int64_t{-1}},
                {INT64_MAX},
                {INT64_MIN},
                {UINT64_MAX}}}},
        {"reals", {Array{{0.1}, {-1e300}, {1.0}}}},
        {"dates", {Array{{at(1795262400)}, {at(-1)}, {at(0, 1)}, {at(5680281600)}}}},
        {"data", {PropertyList::Data{std::string("\0\xff\0", 3)}}},
        {"reference", {PropertyList::Reference{70000}}},
        {"nested", {Array{{Array{}}, {Dictionary{}}, {Array{{Array{{true}}}}}}}},
    }};
    const auto back = readPropertyList(writeBinaryPropertyList(list));
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, list);
}

TEST(WriteBinaryPropertyList, WritesTheseBytes) {
    const std::string expected = std::string("bplist00") +         //
                                 std::string("\xd1\x01\x02", 3) +  // at 8
                                 "\x51"
                                 "k" +  // at 11
                                 "\x33\x3f\xf8" +
                                 bigEndian(0, 6) +                    // at 13
                                 "\x08\x0b\x0d" +                     // at 22
                                 std::string(6, '\0') + "\x01\x01" +  //
                                 bigEndian(3, 8) + bigEndian(0, 8) + bigEndian(22, 8);
    EXPECT_EQ(writeBinaryPropertyList({Dictionary{{"k", {at(978307201, 500000)}}}}), expected);
}

TEST(WriteBinaryPropertyList, KeepsTheMicrosecondsOfEveryDate) {
    std::mt19937_64 random(11);
    PropertyList::Array dates;
    for (int round = 0; round < 20000; ++round) {
        // 1990 to 2100
        dates.push_back({at(631152000 + static_cast<std::int64_t>(random() % 3471292800U),
                            static_cast<std::int64_t>(random() % 1000000U))});
    }
    const PropertyList list{std::move(dates)};
    EXPECT_TRUE(readPropertyList(writeBinaryPropertyList(list)) == list);
}

TEST(WriteBinaryPropertyList, RoundsNanosecondsToTheNearestMicrosecond) {
    const Instant moment = at(1795262400) + 123456789ns;
    const auto back = readPropertyList(writeBinaryPropertyList({moment}));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->date(), at(1795262400, 123457));
}

TEST(WriteBinaryPropertyList, LeavesOutWhatWouldNotBeReadBack) {
    const PropertyList list{Dictionary{{"a\xff", {true}},
                                       {std::string("b\0c", 3), {true}},
                                       {"nothing", {}},
                                       {"text", {std::string("\xff")}},
                                       {"array", {Array{{}, {true}, {std::string("a\0", 2)}}}}}};
    EXPECT_EQ(*readPropertyList(writeBinaryPropertyList(list)),
              (PropertyList{Dictionary{{"array", {Array{{true}}}}}}));
    EXPECT_EQ(writeBinaryPropertyList({}), "");
}

TEST(WriteBinaryPropertyList, LeavesOutWhatLiesTooDeep) {
    PropertyList list{Array{{true}}};
    for (int level = 1; level < 600; ++level) list = {Array{std::move(list)}};
    const auto back = readPropertyList(writeBinaryPropertyList(list));
    ASSERT_TRUE(back);
    std::size_t levels = 0;
    for (const PropertyList* inner = &*back; inner; ++levels) {
        inner = inner->array()->empty() ? nullptr : &inner->array()->front();
    }
    EXPECT_EQ(levels, 512U);
}

}  // namespace
}  // namespace morvane
