#include <chrono>
#include <gtest/gtest.h>

#include "model/apps.h"
#include "model/disk.h"
#include "model/files.h"
#include "model/letters.h"
#include "model/vocabulary.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;

TEST(InstalledApp, CountsLaunchAgentsByTheExactKindWord) {
    InstalledApp app;
    app.parts = {{"Application", "/Applications/A.app", 1'500'000},
                 {"launch agents", "/x", 500'000}};
    EXPECT_FALSE(hasLaunchAgents(app));
    app.parts.push_back({"Launch Agents", "/y", 0});
    EXPECT_TRUE(hasLaunchAgents(app));
    EXPECT_DOUBLE_EQ(megabytes(app), 2.0);
}

TEST(LargeFile, CountsItsAgeInWholeMonthsOfThirtyDays) {
    const Instant now = std::chrono::sys_days{std::chrono::year(2026) / 11 / 21};
    const auto aged = [&](std::chrono::hours hours) {
        return ageInMonths(LargeFile{"/a", 0, FileKind::other, {}, now - hours}, now);
    };
    EXPECT_EQ(aged(29h * 24 + 23h), 0);
    EXPECT_EQ(aged(30h * 24), 1);
    EXPECT_EQ(aged(360h * 24), 12);
}

TEST(Vocabulary, MatchesStoredTextExactly) {
    EXPECT_EQ(scanScheduleFrom("Off"), ScanSchedule::off);
    EXPECT_EQ(scanScheduleFrom("off"), std::nullopt);
    EXPECT_EQ(onboardingStepFrom("access"), OnboardingStep::access);
    EXPECT_EQ(onboardingStepFrom(""), std::nullopt);
    EXPECT_EQ(diskCategoryFrom("media"), DiskCategory::media);
    EXPECT_EQ(wordsOf(ScanCategory::largeFiles).title, "Large & Old Files");
    EXPECT_EQ(wordsOf(SidebarItem::storage).title, "Storage Map");
    EXPECT_EQ(rawValue(FileKind::diskImage), "Disk Images");
}

std::string described(const DiskUsage& disk) {
    std::string text;
    for (const DiskUsage::Slice& slice : slices(disk)) {
        text += std::string(sliceIdentity(slice)) + "=" + std::to_string(slice.bytes) + " ";
    }
    return text;
}

TEST(Slices, CountUsedSpaceWithoutWhatIsFreeOrPurgeable) {
    DiskUsage disk;
    disk.totalBytes = 500;
    disk.freeBytes = 100;
    disk.purgeableBytes = 40;
    disk.measured = {{DiskCategory::apps, 60}, {DiskCategory::developer, 0}};
    EXPECT_EQ(described(disk), "apps=60 pending=300 purgeable=40 ");
    disk.isComplete = true;
    disk.systemBytes = 20;
    EXPECT_EQ(described(disk), "apps=60 system=20 other=280 purgeable=40 ");
}

TEST(Slices, CutTheSystemToWhatIsUsedAndStillListTheCategories) {
    DiskUsage disk;
    disk.totalBytes = 100;
    disk.freeBytes = 90;
    disk.systemBytes = 50;
    disk.measured = {{DiskCategory::apps, 5}, {DiskCategory::documents, 5}};
    EXPECT_EQ(described(disk), "apps=0 documents=0 system=10 ");
}

TEST(Slices, ShrinkWalkedFoldersInProportion) {
    DiskUsage disk;
    disk.totalBytes = 100;
    disk.measured = {{DiskCategory::apps, 300}, {DiskCategory::media, 100}};
    EXPECT_EQ(described(disk), "apps=75 media=25 ");
}

TEST(Letters, AreTakenInEveryScript) {
    EXPECT_TRUE(isLetter(U'é'));
    EXPECT_TRUE(isLetter(U'界'));
    EXPECT_FALSE(isLetter(U'7'));
    EXPECT_TRUE(isNumber(U'٣'));
    EXPECT_TRUE(isNumber(U'½'));
    EXPECT_FALSE(isNumber(U'a'));
    EXPECT_EQ(lowercased("ÄPFEL"), "äpfel");
    EXPECT_EQ(withUppercasedFirst("élan vital"), "Élan vital");
    EXPECT_EQ(trimmed(" \t a b \n"), "a b");
    EXPECT_EQ(withoutWhitespace("Super Edit\u00a02"), "SuperEdit2");
}

TEST(CompareNumerically, ComparesPieceByPiece) {
    EXPECT_GT(compareNumerically("17.10", "17.9"), 0);
    EXPECT_EQ(compareNumerically("17.0", "17.0"), 0);
    EXPECT_LT(compareNumerically("17", "17.1"), 0);
    EXPECT_LT(compareNumerically("", "1"), 0);
}

TEST(CompareNames, OrdersAsAFileListDoes) {
    const Region region;
    EXPECT_LT(compareNames("apple", "Banana", region), 0);
    EXPECT_LT(compareNames("File 9", "File 10", region), 0);
    EXPECT_LT(compareNames("Éclair", "Zebra", region), 0);
}

}  // namespace
}  // namespace morvane
