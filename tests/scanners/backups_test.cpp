#include "scanners/backups.h"

#include "scanners/plists.h"
#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Backups : public ScannerTest {
protected:
    const Path folder = library("Application Support/MobileSync/Backup");

    void add(std::string_view name, std::int64_t bytes, PlistDictionary info) {
        files.addFile(folder / name / "aa/data", bytes - 4096);
        files.addContents(folder / name / "Info.plist", plistOf(std::move(info)));
    }
    [[nodiscard]] CleanupItem only() const {
        const auto items = scanBackups(scan());
        EXPECT_THAT(items, SizeIs(1));
        return items.empty() ? CleanupItem{} : items.front();
    }
};

TEST_F(Backups, AreNamedByTheirDeviceAndDate) {
    // 23:30 UTC on the 1st is half past midnight of the 2nd in Berlin.
    const Instant date = std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + 23h + 30min;
    add("0011-AA", 30'000'000'000,
        {{"Device Name", text("My iPhone")},
         {"Display Name", text("Other")},
         {"Product Name", text("iPhone 14")},
         {"Last Backup Date", PropertyList{date}}});
    system.now = date + std::chrono::hours(24 * 22);
    EXPECT_EQ(only(),
              (CleanupItem{
                  .id = "backup:0011-AA",
                  .name = "My iPhone, backed up 2 March 2026",
                  .bytes = 30'000'000'000,
                  .safety = Safety::review,
                  .location = "~/Library/Application Support/MobileSync/Backup/0011-AA",
                  .explanation =
                      "A full copy of an iPhone 14, from 3 weeks ago. If that device now backs up "
                      "to iCloud, or you no longer have it, this is likely safe to remove.",
                  .lastUsed = "",
                  .revealURL = "/Users/sam/Library/Application Support/MobileSync/Backup/0011-AA",
                  .action = TrashAction{
                      {{folder / "0011-AA", 30'000'000'000, files.identity(folder)}}}}));
}

TEST_F(Backups, AreNamedByTheDisplayNameWithoutADeviceName) {
    add("a", 5000, {{"Display Name", text("Sam’s iPad")}});
    EXPECT_EQ(only().name, "Sam’s iPad");
}

TEST_F(Backups, WithoutAProductAreOfADevice) {
    add("a", 5000, {{"Last Backup Date", PropertyList{daysAgo(8)}}});
    EXPECT_EQ(only().name, "An iPhone, backed up 13 November 2026");
    EXPECT_THAT(only().explanation,
                testing::StartsWith("A full copy of a device, from last week. If that device"));
}

TEST_F(Backups, WithoutAnInfoFileAreOfferedAllTheSame) {
    files.addFile(folder / "a/data", 10);
    EXPECT_EQ(only().name, "An iPhone");
    EXPECT_EQ(only().explanation,
              "A full copy of a device. If that device now backs up to iCloud, or you no longer "
              "have it, this is likely safe to remove.");
}

TEST_F(Backups, WithABrokenInfoFileAreOfferedAllTheSame) {
    for (const std::string& broken : brokenPlists) {
        files.addContents(folder / "a/Info.plist", broken);
        EXPECT_EQ(only().name, "An iPhone") << broken;
    }
}

TEST_F(Backups, PassOverValuesOfAnotherType) {
    add("a", 5000,
        {{"Device Name", PropertyList{std::int64_t{7}}},
         {"Display Name", PropertyList{PropertyList::Array{}}},
         {"Product Name", PropertyList{true}},
         {"Last Backup Date", text("2026-03-02")}});
    EXPECT_EQ(only().name, "An iPhone");
    EXPECT_THAT(only().explanation, testing::StartsWith("A full copy of a device. "));
}

TEST_F(Backups, MayBeStrayFiles) {
    files.addFile(folder / "stray", 1, daysAgo(1));
    EXPECT_EQ(only().id, "backup:stray");
    EXPECT_EQ(only().bytes, 1);
    EXPECT_EQ(only().name, "An iPhone");
}

TEST_F(Backups, OfNoBytesAreLeftOut) {
    files.addFolder(folder / "empty");
    files.addFile(folder / "nothing", 0);
    EXPECT_THAT(scanBackups(scan()), IsEmpty());
    EXPECT_EQ(backupItem(scan(), folder / "missing"), std::nullopt);
}

TEST_F(Backups, HaveAnIdEachWhateverTheirNames) {
    add("%E9", 40'000, {});
    add("\xE9", 30'000, {});
    add("50%25", 20'000, {});
    const auto items = scanBackups(scan());
    ASSERT_THAT(items, SizeIs(3));
    EXPECT_EQ(items[0].id, "backup:%25E9");
    EXPECT_EQ(items[1].id, "backup:%E9");
    EXPECT_EQ(items[2].id, "backup:50%2525");
}

TEST_F(Backups, KeepTheirIdFromScanToScan) {
    add("0011-AA", 5000, {{"Last Backup Date", PropertyList{daysAgo(8)}}});
    EXPECT_EQ(only().id, "backup:0011-AA");
    add("0011-AA", 6000, {{"Last Backup Date", PropertyList{daysAgo(1)}}});
    EXPECT_EQ(only().id, "backup:0011-AA");
}

TEST_F(Backups, ComeLargestFirstWhateverTheirDates) {
    add("old", 5000, {{"Last Backup Date", PropertyList{daysAgo(800)}}});
    add("new", 6000, {{"Last Backup Date", PropertyList{daysAgo(1)}}});
    add("middle", 5500, {});
    EXPECT_THAT(idsOf(scanBackups(scan())),
                ElementsAre("backup:new", "backup:middle", "backup:old"));
}

TEST_F(Backups, InAFolderThatMayNotBeReadAreNone) {
    add("a", 5000, {});
    files.refuseReading(library("Application Support/MobileSync"));
    EXPECT_THAT(scanBackups(scan()), IsEmpty());
}

TEST_F(Backups, HaveIdsThatAreText) {
    files.addFile(folder / "a\xff/data", 10);
    EXPECT_EQ(only().id, "backup:a%FF");
}

}  // namespace
}  // namespace morvane::CleanupScanner
