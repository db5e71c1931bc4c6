#include "model/path_text.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace morvane {
namespace {

TEST(PathText, LeavesAPlainPathAsItIs) {
    EXPECT_EQ(pathText("/Users/sam/Füße 100%.txt"), "/Users/sam/Füße 100%.txt");
    EXPECT_EQ(pathText("/a%41"), "/a%41");
}

TEST(PathText, EscapesEveryPercentOnceAnEscapeIsNeeded) {
    EXPECT_EQ(pathText("/a%25"), "/a%2525");
    EXPECT_EQ(pathText("/a%ff%41"), "/a%25ff%2541");
    EXPECT_EQ(pathText("/a\xff%"), "/a%FF%25");
    EXPECT_EQ(pathText("/\xc3"), "/%C3");
}

TEST(NameText, ShowsANameAsItIsWhereItIsText) {
    EXPECT_EQ(nameText("R%C3%A9sum%C3%A9.pdf"), "R%C3%A9sum%C3%A9.pdf");
    EXPECT_EQ(nameText("50%25"), "50%25");
    EXPECT_EQ(nameText("caf\xe9"), "caf%E9");
}

TEST(PathText, IsTurnedBackFromRandomBytes) {
    std::mt19937 random(7);
    std::set<std::string> texts;
    std::set<std::string> paths;
    const std::string pieces[] = {"%",   "2",    "5",    "8",    "F", "f",
                                  "a",   "\xc3", "\xa4", "\xed", "/", "\xf0\x9f\x98\x80",
                                  "%25", "%C3",  "\xff"};
    for (int round = 0; round < 20000; ++round) {
        std::string bytes = "/";
        for (unsigned length = random() % 8; length > 0; --length) {
            bytes += random() % 4 == 0 ? std::string(1, static_cast<char>(1 + random() % 255))
                                       : pieces[random() % std::size(pieces)];
        }
        const std::string text = pathText(bytes);
        EXPECT_TRUE(isUTF8(text));
        ASSERT_EQ(pathFromText(text).native(), bytes) << text;
        texts.insert(text);
        paths.insert(bytes);
    }
    EXPECT_EQ(texts.size(), paths.size());
}

TEST(IsUTF8, RefusesSurrogatesOverlongFormsAndWhatLiesBeyond) {
    EXPECT_TRUE(isUTF8("\xed\x9f\xbf"));
    EXPECT_FALSE(isUTF8("\xed\xa0\x80"));
    EXPECT_FALSE(isUTF8("\xc0\xaf"));
    EXPECT_FALSE(isUTF8("\xe0\x80\xaf"));
    EXPECT_FALSE(isUTF8("\xf4\x90\x80\x80"));
    EXPECT_FALSE(isUTF8("\xe2\x82"));
}

TEST(Standardised, TakesOutDotsAndDoubledSlashes) {
    EXPECT_EQ(standardised("/a/./b//../c/"), "/a/c");
    EXPECT_EQ(standardised("/.."), "/");
    EXPECT_EQ(standardised("/"), "/");
}

TEST(IsInside, DoesNotCoverASiblingWithTheSameBeginning) {
    EXPECT_TRUE(isInside("/Users/sam/Foo", "/Users/sam/Foo"));
    EXPECT_TRUE(isInside("/Users/sam/Foo/a", "/Users/sam/Foo"));
    EXPECT_FALSE(isInside("/Users/sam/Foobar", "/Users/sam/Foo"));
    EXPECT_FALSE(isInside("/Users/sam/foo/a", "/Users/sam/Foo"));
    EXPECT_TRUE(isInside("/anything", "/"));
}

TEST(AbbreviatedWithTilde, ReplacesTheHomeFolderAlone) {
    EXPECT_EQ(abbreviatedWithTilde("/Users/sam/Downloads", "/Users/sam"), "~/Downloads");
    EXPECT_EQ(abbreviatedWithTilde("/Users/sam", "/Users/sam"), "~");
    EXPECT_EQ(abbreviatedWithTilde("/Users/samuel/x", "/Users/sam"), "/Users/samuel/x");
}

}  // namespace
}  // namespace morvane
