// Disks that are not as a Mac leaves them, swept and put back by the whole program.

#include <gtest/gtest.h>
#include <unistd.h>

#include "faults/new_start.h"

namespace morvane::test {
namespace {

const std::string home = "/Users/sam";
const std::string caches = home + "/Library/Caches";
const std::string trash = home + "/.Trash";
using Names = std::vector<std::string>;

TEST(OddDisk, ALinkInPlaceOfCachesOrDownloadsIsGoneThroughAndStays) {
    TestDisk disk;
    disk.text("/Volumes of old/caches/com.a.One/data", "one");
    disk.text("/Volumes of old/downloads/Thing.dmg", "thing");
    disk.makeFolder(home + "/Library");
    disk.link(caches, "/Volumes of old/caches");
    disk.link(home + "/Downloads", "/Volumes of old/downloads");
    disk.writeHost();
    DriverClient driver(disk.folder());
    EXPECT_EQ(scanFor(driver),
              (std::set<std::string>{caches + "/com.a.One", home + "/Downloads/Thing.dmg"}));
    sweepFound(driver);
    EXPECT_EQ(disk.names(trash), (Names{"Thing.dmg", "com.a.One"}));
    EXPECT_EQ(disk.names("/Volumes of old"), (Names{"caches", "downloads"}));
    EXPECT_TRUE(std::filesystem::is_symlink(disk.real(caches)));
    restoreAll(driver);
    EXPECT_EQ(disk.content("/Volumes of old/caches/com.a.One/data"), "one");
    EXPECT_EQ(disk.content("/Volumes of old/downloads/Thing.dmg"), "thing");
    EXPECT_EQ(disk.names(trash), Names());
}

// Sweeps a disk whose Trash was spoilt, and expects that nothing went anywhere.
void expectNothingGoes(PlannedDisk& planned) {
    DriverClient driver(planned.disk.folder());
    scanFor(driver);
    sweepFound(driver);
    EXPECT_EQ(driver.get("sweepProblem"),
              "Nothing could be removed. It may be in use, or macOS may not allow it.");
    EXPECT_EQ(driver.get("history"), Json::array());
    EXPECT_EQ(planned.itemsAt(Whereabouts::oldPlace).size(), planned.items().size());
    planned.expectRestUntouched();
}

TEST(OddTrash, ThatIsAFileTakesNothingAndStays) {
    PlannedDisk planned;
    planned.disk.text(trash, "not a folder");
    expectNothingGoes(planned);
    EXPECT_EQ(planned.disk.content(trash), "not a folder");
}

TEST(OddTrash, ThatIsALinkTakesNothingAndStays) {
    PlannedDisk planned;
    planned.disk.link(trash, home + "/Documents");
    expectNothingGoes(planned);
    EXPECT_EQ(planned.disk.names(home + "/Documents"), Names{"precious"});
}

TEST(OddTrash, ThatLeadsNowhereIsNotMade) {
    PlannedDisk planned;
    planned.disk.link(trash, home + "/nowhere");
    expectNothingGoes(planned);
    EXPECT_FALSE(planned.disk.has(home + "/nowhere"));
}

TEST(OddTrash, ThatIsSomebodyElsesOrReadOnlyTakesNothing) {
    PlannedDisk planned;
    planned.disk.makeFolder(trash);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(planned.disk.real(trash).c_str(), 4242, 4242), 0);
    } else {
        // Only the superuser can give a folder away, and only others obey a mode.
        ASSERT_EQ(::chmod(planned.disk.real(trash).c_str(), 0500), 0);
    }
    expectNothingGoes(planned);
    EXPECT_EQ(planned.disk.names(trash), Names());
}

TEST(OddNames, Of255BytesGoAndComeBackBesideOthersOfTheSameName) {
    TestDisk disk;
    const std::string longest(255, 'n');
    const std::string logs = home + "/Library/Logs/";
    for (const std::string folder : {"a/", "b/", "c/"}) disk.text(logs + folder + longest, folder);
    disk.text(trash + "/" + longest, "was there");
    disk.writeHost();
    DriverClient driver(disk.folder());
    scanFor(driver);
    sweepFound(driver);
    EXPECT_EQ(disk.names(trash).size(), 4U);
    EXPECT_EQ(disk.content(trash + "/" + longest), "was there");
    EXPECT_EQ(disk.names(logs + "a"), Names());
    restoreAll(driver);
    for (const std::string folder : {"a/", "b/", "c/"}) {
        EXPECT_EQ(disk.content(logs + folder + longest), folder);
    }
    EXPECT_EQ(disk.names(trash), Names{longest});
}

TEST(OddNames, AThousandOfOneGoAndComeBackEachToItsOwnPlace) {
    TestDisk disk;
    const auto log = [](int number) {
        return home + "/Library/Logs/" + std::to_string(number) + "/same.log";
    };
    for (int i = 0; i < 1000; ++i) disk.text(log(i), std::to_string(i));
    disk.writeHost();
    DriverClient driver(disk.folder());
    scanFor(driver);
    sweepFound(driver);
    EXPECT_EQ(disk.names(trash).size(), 1000U);
    EXPECT_FALSE(disk.has(log(0)));
    EXPECT_EQ(restoreAll(driver).size(), 1000U);
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(disk.content(log(i)), std::to_string(i));
    EXPECT_EQ(disk.names(trash), Names());
}

}  // namespace
}  // namespace morvane::test
