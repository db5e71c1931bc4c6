#include "scanners/downloads.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Downloads : public ScannerTest {
protected:
    void add(std::string_view name, std::int64_t bytes = 100) {
        files.addFile(home("Downloads") / name, bytes);
    }
    // Whether the installer of that name counts as used when `apps` are installed.
    [[nodiscard]] bool isUsed(std::string_view name, const Texts& apps) {
        files.remove(home("Downloads"));
        add(name);
        return idsOf(scanDownloads(scan(), apps)) == Texts{"installers"};
    }
    const Path mail = library("Containers/com.apple.mail/Data/Library/Mail Downloads");
};

TEST_F(Downloads, WithoutFoldersGiveNothing) {
    EXPECT_THAT(scanDownloads(scan(), {"Firefox"}), IsEmpty());
}

TEST_F(Downloads, SplitInstallersByWhetherTheirAppIsThere) {
    add("Firefox 124.0.1.dmg", 100);
    add("Unknown.pkg", 30);
    add("Visual Studio Code 1.88.dmg", 20);
    add("notes.txt", 1000);
    const FolderIdentity folder = files.identity(home("Downloads"));
    EXPECT_THAT(
        scanDownloads(scan(), {"Firefox", "Visual Studio Code"}),
        ElementsAre(
            CleanupItem{
                .id = "installers",
                .name = "Installers you’ve already used (.dmg, .pkg)",
                .bytes = 120,
                .safety = Safety::safe,
                .location = "~/Downloads · 2 files",
                .explanation =
                    "Installers for apps that are already in your Applications folder. Once an "
                    "app is installed, its installer isn’t needed.",
                .lastUsed = "",
                .revealURL = "/Users/sam/Downloads/Firefox 124.0.1.dmg",
                .action = TrashAction{{{"/Users/sam/Downloads/Firefox 124.0.1.dmg", 100, folder},
                                       {"/Users/sam/Downloads/Visual Studio Code 1.88.dmg", 20,
                                        folder}}}},
            CleanupItem{
                .id = "otherInstallers",
                .name = "Other installers (.dmg, .pkg)",
                .bytes = 30,
                .safety = Safety::review,
                .location = "~/Downloads · 1 file",
                .explanation =
                    "Installers for apps Morvane couldn’t find in your Applications folder. You "
                    "may not have installed them yet, so take a look first.",
                .lastUsed = "",
                .revealURL = "/Users/sam/Downloads/Unknown.pkg",
                .action = TrashAction{{{"/Users/sam/Downloads/Unknown.pkg", 30, folder}}}}));
}

TEST_F(Downloads, ReadNothingBehindTheFirstNumber) {
    EXPECT_FALSE(isUsed("7zip.dmg", {"7zip", "zip", "Zip"}));
    EXPECT_FALSE(isUsed("1Password.pkg", {"1Password"}));
    EXPECT_TRUE(isUsed("Firefox 2 Chrome.dmg", {"Firefox"}));
    EXPECT_FALSE(isUsed("Firefox 2 Chrome.dmg", {"Chrome"}));
    EXPECT_FALSE(isUsed("Fir٣efox.dmg", {"Firefox"}));  // an Arabic three
    EXPECT_FALSE(isUsed("Fir½efox.dmg", {"Firefox"}));
}

TEST_F(Downloads, MatchNoKeyOfTwoLetters) {
    EXPECT_FALSE(isUsed("go1.22.pkg", {"Go", "Go Land"}));
    EXPECT_FALSE(isUsed("go.pkg", {"Go"}));
}

TEST_F(Downloads, MatchAKeyThatBeginsWithTheAppsName) {
    EXPECT_TRUE(isUsed("googlechrome-stable.dmg", {"Google Chrome"}));
    EXPECT_FALSE(isUsed("chrome.dmg", {"Google Chrome"}));
    EXPECT_TRUE(isUsed("Zed.dmg", {"Zed"}));
}

TEST_F(Downloads, MatchAnAppThatBeginsWithAKeyOfFourLetters) {
    EXPECT_TRUE(isUsed("zoom.pkg", {"zoom.us"}));
    EXPECT_FALSE(isUsed("sub.dmg", {"Sublime Text"}));
    EXPECT_TRUE(isUsed("subl.dmg", {"Sublime Text"}));
}

TEST_F(Downloads, MatchNoAppOfOneOrTwoLetters) {
    EXPECT_FALSE(isUsed("golang.pkg", {"Go", "G", "", "42"}));
    EXPECT_TRUE(isUsed("golang.pkg", {"Gol"}));
}

TEST_F(Downloads, CountLettersRatherThanBytes) {
    EXPECT_FALSE(isUsed("éa.dmg", {"éab"}));
    EXPECT_FALSE(isUsed("éab.dmg", {"éabcd"}));
    EXPECT_TRUE(isUsed("éabc.dmg", {"éabcd"}));
}

TEST_F(Downloads, KnowInstallersByTheirExtensionInAnyCase) {
    EXPECT_TRUE(isUsed("FIREFOX.DMG", {"Firefox"}));
    EXPECT_TRUE(isUsed("firefox.MPkg", {"Firefox"}));
    add("firefox.iso");
    add("firefox");
    add("dmg");
    files.remove(home("Downloads/firefox.MPkg"));
    EXPECT_THAT(scanDownloads(scan(), {"Firefox"}), IsEmpty());
}

TEST_F(Downloads, TakeAPackageFolderForAnInstaller) {
    files.addFile(home("Downloads/Writer.pkg/Contents/payload"), 300);
    EXPECT_EQ(itemOf(scanDownloads(scan(), {"Writer"}), "installers").bytes, 300);
}

TEST_F(Downloads, EnterNoSubfolder) {
    files.addFile(home("Downloads/Old/Firefox.dmg"), 100);
    EXPECT_THAT(scanDownloads(scan(), {"Firefox"}), IsEmpty());
}

TEST_F(Downloads, ListAnInstallerOfNoBytesButOfferNoneOfThemAlone) {
    add("Firefox.dmg", 0);
    EXPECT_THAT(scanDownloads(scan(), {"Firefox"}), IsEmpty());
    add("Firefox 2.dmg", 5);
    const CleanupItem item = itemOf(scanDownloads(scan(), {"Firefox"}), "installers");
    EXPECT_THAT(pathsOf(item),
                ElementsAre(home("Downloads/Firefox.dmg"), home("Downloads/Firefox 2.dmg")));
    EXPECT_EQ(item.bytes, 5);
    EXPECT_EQ(item.location, "~/Downloads · 2 files");
}

TEST_F(Downloads, TakeNamesThatAreNotText) {
    EXPECT_TRUE(isUsed("Firefox\xff\n.dmg", {"Firefox"}));
    EXPECT_FALSE(isUsed("\xff\xfe.dmg", {"Firefox"}));
}

TEST_F(Downloads, OfferTheAttachmentsMailSaved) {
    files.addFile(mail / "A1/report.pdf", 70);
    files.addFile(mail / "empty", 0);
    files.addFile(mail / "photo.jpg", 30);
    const auto items = scanDownloads(scan(), {});
    ASSERT_THAT(idsOf(items), ElementsAre("mail"));
    EXPECT_EQ(items[0].name, "Mail attachments");
    EXPECT_EQ(items[0].bytes, 100);
    EXPECT_EQ(items[0].safety, Safety::review);
    EXPECT_EQ(items[0].location, "~/Library/Containers/com.apple.mail/Data/Library/Mail Downloads");
    EXPECT_EQ(items[0].explanation,
              "Copies of attachments you opened from Mail. The originals stay in your email, but "
              "check you haven’t been editing one of these copies.");
    EXPECT_EQ(items[0].revealURL, mail);
    EXPECT_THAT(pathsOf(items[0]), ElementsAre(mail / "A1", mail / "photo.jpg"));
}

TEST_F(Downloads, OfferNoAttachmentsThatMayNotBeRead) {
    files.addFile(mail / "photo.jpg", 30);
    files.refuseReading(library("Containers/com.apple.mail"));
    EXPECT_THAT(scanDownloads(scan(), {}), IsEmpty());
}

TEST_F(Downloads, ComeInAFixedOrder) {
    files.addFile(mail / "photo.jpg", 3000);
    add("Unknown.dmg", 200);
    add("Firefox.dmg", 1);
    EXPECT_THAT(idsOf(scanDownloads(scan(), {"Firefox"})),
                ElementsAre("installers", "otherInstallers", "mail"));
}

}  // namespace
}  // namespace morvane::CleanupScanner
