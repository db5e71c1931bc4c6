#include "scanners/frame.h"
#include "scanners/repaired_text.h"
#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

TEST(LooksLikeBundleID, WantsThreePiecesOfLettersNumbersHyphensAndUnderscores) {
    EXPECT_TRUE(looksLikeBundleID("com.acme.App"));
    EXPECT_TRUE(looksLikeBundleID("com.acme-2.my_app.helper"));
    EXPECT_TRUE(looksLikeBundleID("de.müller.größe"));
    EXPECT_TRUE(looksLikeBundleID("jp.会社.アプリ"));
    EXPECT_FALSE(looksLikeBundleID("com.acme"));
    EXPECT_FALSE(looksLikeBundleID("My Project"));
    EXPECT_FALSE(looksLikeBundleID("com.acme.My App"));
    EXPECT_FALSE(looksLikeBundleID("com..acme.App"));
    EXPECT_FALSE(looksLikeBundleID(".com.acme.App"));
    EXPECT_FALSE(looksLikeBundleID("com.acme.App."));
    EXPECT_FALSE(looksLikeBundleID(""));
    EXPECT_FALSE(looksLikeBundleID(".."));
    EXPECT_FALSE(looksLikeBundleID("com.acme.App\n"));
    EXPECT_FALSE(looksLikeBundleID("com.acme.App\xff"));
    EXPECT_FALSE(looksLikeBundleID("com.acme.App/x"));
}

TEST(PrettyAppName, TakesTheLastWordThatNamesTheApp) {
    EXPECT_EQ(prettyAppName("com.spotify.client"), "Spotify");
    EXPECT_EQ(prettyAppName("com.acme.writer.mac"), "Writer");
    EXPECT_EQ(prettyAppName("com.acme.mac.app"), "Acme");
    EXPECT_EQ(prettyAppName("com.acme.Writer.MacOS"), "Writer");
    EXPECT_EQ(prettyAppName("app"), "App");
    EXPECT_EQ(prettyAppName("com.app.desktop"), "Desktop");
    EXPECT_EQ(prettyAppName("com.acme.superEdit"), "SuperEdit");
    EXPECT_EQ(prettyAppName("com.acme.élan"), "Élan");
    EXPECT_EQ(prettyAppName(""), "");
    EXPECT_EQ(prettyAppName("..."), "...");
}

TEST(NormalisedName, KeepsTheLettersInLowerCase) {
    EXPECT_EQ(normalisedName("Google Chrome 2"), "googlechrome");
    EXPECT_EQ(normalisedName("zoom.us"), "zoomus");
    EXPECT_EQ(normalisedName("Ärger-Über_Écran"), "ärgerüberécran");
    EXPECT_EQ(normalisedName("2048"), "");
    EXPECT_EQ(normalisedName("a\xff"
                             "b"),
              "ab");
}

class UsedWords : public ScannerTest {};

TEST_F(UsedWords, TellHowLongAgo) {
    const Region& region = system.platform.region;
    EXPECT_EQ(usedWords(std::nullopt, system.now, region), "");
    EXPECT_EQ(usedWords(system.now, system.now, region), "Used today");
    EXPECT_EQ(usedWords(daysAgo(1), system.now, region), "Used yesterday");
    EXPECT_EQ(usedWords(daysAgo(21), system.now, region), "Used 3 weeks ago");
}

TEST_F(UsedWords, OfADateToComeReadAsToday) {
    EXPECT_EQ(usedWords(daysAgo(-400), system.now, system.platform.region), "Used today");
    EXPECT_EQ(usedWords(Instant::max(), system.now, system.platform.region), "Used today");
}

TEST(RepairedUTF8, ReplacesWhatIsNotValid) {
    EXPECT_EQ(repairedUTF8("größe"), "größe");
    EXPECT_EQ(repairedUTF8("a\xffz\xc3"), "a\uFFFDz\uFFFD");
    EXPECT_EQ(repairedUTF8(""), "");
}

}  // namespace
}  // namespace morvane::CleanupScanner
