#include <gtest/gtest.h>

#include "formats/binary_list.h"
#include "platform/formats/property_list.h"

namespace morvane {
namespace {

// 31 arrays of two references each to the next one: half a kilobyte that stands for 2^31 objects.
TEST(HostilePropertyList, IsNotReadWhenSharedReferencesMakeItGrow) {
    std::vector<std::string> objects;
    for (std::uint64_t at = 1; at <= 31; ++at) objects.push_back(container(0xA, {at, at}));
    objects.emplace_back(
        "\x51"
        "a");
    const std::string bytes = binaryList(objects);
    EXPECT_LT(bytes.size(), 600U);
    EXPECT_FALSE(readPropertyList(bytes));
}

TEST(HostilePropertyList, CountsASharedTextEachTime) {
    // One text of 1 MiB, referred to 14 times by each of several arrays.
    const auto list = [](std::uint64_t arrays) {
        std::vector<std::uint64_t> references;
        for (std::uint64_t at = 1; at <= arrays; ++at) references.push_back(at);
        std::vector<std::string> objects{container(0xA, references)};
        const std::uint64_t text = arrays + 1;
        for (std::uint64_t at = 0; at < arrays; ++at) {
            objects.push_back(container(0xA, std::vector<std::uint64_t>(14, text)));
        }
        objects.push_back("\x5f\x12" + bigEndian(1048576, 4) + std::string(1048576, 'x'));
        return binaryList(objects);
    };
    EXPECT_TRUE(readPropertyList(list(4)));   // 56 MiB
    EXPECT_FALSE(readPropertyList(list(5)));  // 70 MiB
}

TEST(HostilePropertyList, IsNotReadWhenItHoldsItself) {
    EXPECT_FALSE(readPropertyList(binaryList({container(0xA, {0})})));
    EXPECT_FALSE(readPropertyList(binaryList({container(0xA, {1}), container(0xA, {0})})));
    EXPECT_FALSE(readPropertyList(binaryList({container(0xD, {1, 2}),
                                              "\x51"
                                              "a",
                                              container(0xA, {1, 0})})));
    // A dictionary as its own key.
    EXPECT_FALSE(readPropertyList(binaryList({container(0xD, {0, 1}),
                                              "\x51"
                                              "a"})));
}

std::string nestedBinary(std::uint64_t levels) {
    std::vector<std::string> objects;
    for (std::uint64_t at = 1; at < levels; ++at) objects.push_back(container(0xA, {at}));
    objects.push_back(container(0xA, {}));
    return binaryList(objects);
}

TEST(HostilePropertyList, IsReadTo512Levels) {
    EXPECT_TRUE(readPropertyList(nestedBinary(512)));
    EXPECT_FALSE(readPropertyList(nestedBinary(513)));
    EXPECT_FALSE(readPropertyList(nestedBinary(60000)));
    const auto nestedXML = [](std::size_t levels) {
        return xmlList(repeated("<array>", levels) + repeated("</array>", levels));
    };
    EXPECT_TRUE(readPropertyList(nestedXML(512)));
    EXPECT_FALSE(readPropertyList(nestedXML(513)));
    EXPECT_FALSE(readPropertyList(nestedXML(100000)));
    EXPECT_FALSE(readPropertyList(repeated("<array>", 100000)));
    EXPECT_FALSE(readPropertyList(repeated("<plist>", 100000)));
    const auto nestedDictionaries = [](std::size_t levels) {
        return xmlList(repeated("<dict><key>a</key>", levels) + "<string>a</string>" +
                       repeated("</dict>", levels));
    };
    EXPECT_TRUE(readPropertyList(nestedDictionaries(512)));
    EXPECT_FALSE(readPropertyList(nestedDictionaries(513)));
}

std::string numberedKeys(std::size_t count) {
    std::string content = "<dict>";
    for (std::size_t at = 0; at < count; ++at) {
        content += "<key>k" + std::to_string(at) + "</key><true/>";
    }
    return xmlList(content + "</dict>");
}

TEST(HostilePropertyList, IsReadTo200000Objects) {
    const auto list = readPropertyList(numberedKeys(99999));  // with the dictionary, 199,999
    ASSERT_TRUE(list);
    EXPECT_EQ(list->dictionary()->size(), 99999U);
    EXPECT_FALSE(readPropertyList(numberedKeys(100000)));
    EXPECT_FALSE(readPropertyList(numberedKeys(1000000)));
    EXPECT_TRUE(readPropertyList(xmlList("<array>" + repeated("<true/>", 199999) + "</array>")));
    EXPECT_FALSE(readPropertyList(xmlList("<array>" + repeated("<true/>", 200000) + "</array>")));
}

TEST(HostilePropertyList, IsReadTo32Mebibytes) {
    const std::string frame = xmlList("<string></string>");
    const auto list = [](std::size_t text) {
        return xmlList("<string>" + std::string(text, 'x') + "</string>");
    };
    EXPECT_TRUE(readPropertyList(list(33554432 - frame.size())));
    EXPECT_FALSE(readPropertyList(list(33554433 - frame.size())));
}

// "Ez" and "FY" have one sum in the library's table, so that all these keys share a place in it.
TEST(HostilePropertyList, IsNotReadWhenItsKeysMeetInOnePlace) {
    const auto list = [](std::size_t count, const std::string& before) {
        std::string content = "<dict>";
        for (std::size_t at = 0; at < count; ++at) {
            content += "<key>" + before;
            for (unsigned bit = 0; bit < 17; ++bit) {
                content += (at >> bit & 1U) != 0 ? "Ez" : "FY";
            }
            content += "</key><true/>";
        }
        return xmlList(content + "</dict>");
    };
    EXPECT_TRUE(readPropertyList(list(2000, "")));
    EXPECT_FALSE(readPropertyList(list(90000, "")));
    EXPECT_FALSE(readPropertyList(list(90000, "&amp;")));
    EXPECT_FALSE(readPropertyList(list(90000, "<![CDATA[a]]>")));
    EXPECT_FALSE(readPropertyList(list(90000, "<!-- a -->")));
}

TEST(HostilePropertyList, IsNotReadWhenItDeclaresEntities) {
    EXPECT_FALSE(readPropertyList(
        "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\">"
        "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\">]>"
        "<plist version=\"1.0\"><string>&c;</string></plist>"));
    EXPECT_FALSE(readPropertyList("<!DOCTYPE plist [ ]><plist><true/></plist>"));
    EXPECT_FALSE(readPropertyList("<!DOCTYPE plist SYSTEM \"><plist><true/></plist>"));
    const auto unknown = readPropertyList(xmlList("<string>&unknown;</string>"));
    EXPECT_FALSE(unknown);
}

TEST(HostilePropertyList, IsNotReadWhenItsMarkupIsUnsound) {
    const std::vector<std::string> contents{
        "",
        "<dict>",
        "</dict>",
        "<dict></array>",
        "<string><true/></string>",
        "<string>",
        "<string>a</key>",
        "<unknown/>",
        "<dict><true/></dict>",
        "<integer>five</integer>",
        "<integer></integer>",
        "<integer>1 2</integer>",
        "<integer>0x</integer>",
        "<integer>123456789012345678901</integer>",
        "<real>much</real>",
        "<real>1,5</real>",
        "<date>yesterday</date>",
        "<date>2024-11-03</date>",
        "<date>2024-13-03T18:22:05Z</date>",
        "<date>2024-11-03T24:22:05Z</date>",
        "<!-- never closed",
        "<string><![CDATA[never closed</string>",
        "<array a=\"></array>",
        "<ar<ray/>",
        "<",
    };
    for (const std::string& content : contents) {
        EXPECT_FALSE(readPropertyList(xmlList(content))) << content;
    }
    EXPECT_FALSE(readPropertyList(""));
    EXPECT_FALSE(readPropertyList("plist"));
    EXPECT_FALSE(readPropertyList("{ a = b; }"));
    EXPECT_FALSE(readPropertyList("bplist00"));
    EXPECT_FALSE(readPropertyList(std::string(100000, '\0')));
}

TEST(HostilePropertyList, IsNotReadWhenItsTableIsUnsound) {
    const std::string sound = binaryList({container(0xA, {1}),
                                          "\x51"
                                          "a"});
    ASSERT_TRUE(readPropertyList(sound));
    const std::size_t trailer = sound.size() - 32;
    const auto with = [&](std::size_t at, const std::string& bytes) {
        std::string changed = sound;
        changed.replace(at, bytes.size(), bytes);
        return changed;
    };
    EXPECT_FALSE(readPropertyList(with(6, "17")));                                // version
    EXPECT_FALSE(readPropertyList(with(trailer + 6, std::string(1, '\0'))));      // offset width
    EXPECT_FALSE(readPropertyList(with(trailer + 7, std::string(1, '\0'))));      // reference width
    EXPECT_FALSE(readPropertyList(with(trailer + 6, "\xff")));                    //
    EXPECT_FALSE(readPropertyList(with(trailer + 7, "\xff")));                    //
    EXPECT_FALSE(readPropertyList(with(trailer + 8, bigEndian(UINT64_MAX, 8))));  // count
    EXPECT_FALSE(readPropertyList(with(trailer + 8, bigEndian(0, 8))));           //
    EXPECT_FALSE(readPropertyList(with(trailer + 16, bigEndian(2, 8))));          // top
    EXPECT_FALSE(readPropertyList(with(trailer + 24, bigEndian(UINT64_MAX, 8))));  // table
    EXPECT_FALSE(readPropertyList(with(trailer + 24, bigEndian(0, 8))));           //
    EXPECT_FALSE(readPropertyList(with(trailer - 8, bigEndian(UINT32_MAX, 4))));   // an offset
    EXPECT_FALSE(readPropertyList(with(trailer - 8, bigEndian(0, 4))));            //
}

TEST(HostilePropertyList, IsNotReadWhenAnObjectIsUnsound) {
    const std::vector<std::string> objects{
        std::string("\x00", 1),          // null
        "\x0f",                          // filler
        "\x15" + std::string(32, '\0'),  // an integer of 32 bytes
        "\x11",                          // an integer cut off
        "\x24" + std::string(16, '\0'),  // a real of 16 bytes
        "\x32" + std::string(4, '\0'),   // a date of 4 bytes
        "\x5e"
        "abc",  // a text beyond the table
        "\x6e"
        "abc",                                   //
        "\x5f\x13" + bigEndian(UINT64_MAX, 8),   // a size beyond everything
        "\x6f\x13" + bigEndian(1ULL << 63U, 8),  //
        "\xaf\x13" + bigEndian(UINT64_MAX, 8),   //
        "\xdf\x13" + bigEndian(1ULL << 63U, 8),  //
        "\x5f\x53"
        "abc",                           // a size that is no integer
        "\x5f",                          // no size
        "\xa1",                          // a reference cut off
        "\xa1" + bigEndian(7, 2),        // a reference to nothing
        std::string("\xd1\0\0\0\0", 5),  // itself as its key
        "\xc1" + bigEndian(0, 2),        // a set
        "\x70",                          // no kind at all
    };
    for (const std::string& object : objects) {
        EXPECT_FALSE(readPropertyList(binaryList({object}))) << testing::PrintToString(object);
    }
}

// The library ends the program at such a key.
TEST(HostilePropertyList, IsNotReadWhenAKeyHasANul) {
    EXPECT_FALSE(readPropertyList(
        binaryList({container(0xD, {1, 2}), std::string("\x53\x61\0b", 4), "\x09"})));
    EXPECT_FALSE(readPropertyList(
        binaryList({container(0xD, {1, 2}), std::string("\x63\0c\0\0\0d", 7), "\x09"})));
    EXPECT_FALSE(
        readPropertyList(binaryList({container(0xD, {1, 2}), std::string("\x61\0\0", 3), "\x09"})));
    EXPECT_FALSE(readPropertyList(xmlList(std::string("<dict><key>a\0b</key><true/></dict>", 34))));
    EXPECT_FALSE(readPropertyList(xmlList("<dict><key>a&#0;b</key><true/></dict>")));
}

TEST(HostilePropertyList, IsNotReadWhenItEndsEarly) {
    const PropertyList list{PropertyList::Dictionary{
        {"text", {std::string("Füße")}},
        {"array", {PropertyList::Array{{true}, {1.5}, {std::int64_t{70000}}}}},
        {"date", {Instant()}}}};
    const std::string binary = writeBinaryPropertyList(list);
    for (std::size_t length = 0; length < binary.size(); ++length) {
        EXPECT_FALSE(readPropertyList(binary.substr(0, length))) << length;
    }
    const std::string xml = xmlList(
        "<dict><key>a</key><array><string>b&amp;</string><true/>"
        "<date>2024-11-03T18:22:05Z</date></array></dict>");
    for (std::size_t length = 0; length + 2 < xml.size(); ++length) {
        EXPECT_FALSE(readPropertyList(xml.substr(0, length))) << length;
    }
}

}  // namespace
}  // namespace morvane
