#include "platform/folder/free_name.h"

#include <gtest/gtest.h>
#include <string>

namespace morvane::folder {

namespace {

std::string repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

TEST(NumberedName, PutsTheNumberBeforeTheExtension) {
    EXPECT_EQ(numberedName("notes.txt", 2), "notes 2.txt");
    EXPECT_EQ(numberedName("archive.tar.gz", 13), "archive.tar 13.gz");
    EXPECT_EQ(numberedName("Editor.app", 2), "Editor 2.app");
    EXPECT_EQ(numberedName("Caches", 3), "Caches 3");
}

TEST(NumberedName, TakesNeitherALeadingDotNorALastOneForAnExtension) {
    EXPECT_EQ(numberedName(".profile", 2), ".profile 2");
    EXPECT_EQ(numberedName("..data", 2), "..data 2");
    EXPECT_EQ(numberedName(".config.json", 2), ".config 2.json");
    EXPECT_EQ(numberedName("ends with a dot.", 2), "ends with a dot. 2");
    EXPECT_EQ(numberedName("...", 2), "... 2");
}

TEST(NumberedName, TakesWhatHoldsABlankOrIsLongForPartOfTheName) {
    EXPECT_EQ(numberedName("Version 1.2 of it", 2), "Version 1.2 of it 2");
    EXPECT_EQ(numberedName("a." + repeated("e", 32), 2), "a 2." + repeated("e", 32));
    EXPECT_EQ(numberedName("a." + repeated("e", 33), 2), "a." + repeated("e", 33) + " 2");
}

TEST(NumberedName, CutsANameThatHasNoRoomForTheNumber) {
    EXPECT_EQ(numberedName(repeated("n", 255), 2), repeated("n", 253) + " 2");
    EXPECT_EQ(numberedName(repeated("n", 255), 1000), repeated("n", 250) + " 1000");
    EXPECT_EQ(numberedName(repeated("n", 251) + ".txt", 2), repeated("n", 249) + " 2.txt");
    EXPECT_EQ(numberedName(repeated("n", 253), 2), repeated("n", 253) + " 2");
}

TEST(NumberedName, CutsBetweenLettersOfUTF8) {
    // 127 letters of two bytes and one of one byte: 255 bytes.
    EXPECT_EQ(numberedName("a" + repeated("é", 127), 2), "a" + repeated("é", 126) + " 2");
    // 63 letters of four bytes and three of one: 253 bytes stay, 252 of them whole letters and one.
    EXPECT_EQ(numberedName("abc" + repeated("\xF0\x9F\x98\x80", 63), 2),
              "abc" + repeated("\xF0\x9F\x98\x80", 62) + " 2");
}

TEST(NumberedName, CutsBetweenBytesOfWhatIsNotUTF8) {
    EXPECT_EQ(numberedName(repeated("\xA9", 255), 2), repeated("\xA9", 253) + " 2");
}

}  // namespace

}  // namespace morvane::folder
