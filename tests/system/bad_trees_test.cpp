// Trees that are strange, deep, broad or changing, and lists inside bundles that lie.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

class BadTrees : public SystemTest {
protected:
    static inline const std::string caches = "/Users/sam/Library/Caches/";

    // `levels` folders one in the other below `path`, the last with a file of that size.
    void digDown(const std::string& path, int levels, std::int64_t bytes) {
        disk.makeFolder(path);
        int at = ::open(disk.real(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int level = 0; level < levels; ++level) {
            ASSERT_EQ(::mkdirat(at, "d", 0755), 0);
            const int next = ::openat(at, "d", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            ASSERT_GE(next, 0);
            ::close(at);
            at = next;
        }
        const int file = ::openat(at, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
        ASSERT_GE(file, 0);
        ASSERT_EQ(::posix_fallocate(file, 0, bytes), 0);
        ::close(file);
        ::close(at);
    }
};

TEST_F(BadTrees, OfTenThousandLevelsAreMeasuredMappedMovedAndPutBack) {
    digDown(caches + "com.a.Deep", 10'000, 20'000'000);
    driver().call("scanStorage", {{"force", true}});
    EXPECT_EQ(driver().get("storageRoot").at("children").at(0).at("bytes"), 20'000'768);
    scan();
    EXPECT_EQ(driver().get("crumbItems").at(0).at("bytes"), 20'000'768);
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    driver().call("restore", {{"entry", driver().get("history").at(0).at("id")}});
    EXPECT_TRUE(disk.has(caches + "com.a.Deep/d/d/d/d"));
}

TEST_F(BadTrees, OfTenThousandLevelsAreDeleted) {
    digDown(caches + "com.a.Deep", 10'000, 4096);
    scan();
    driver().set({{"alwaysUseTrash", false}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_EQ(disk.names(caches), std::vector<std::string>());
}

TEST_F(BadTrees, OfAHundredThousandEntriesAreCountedToTheLast) {
    disk.makeFolder(caches + "com.a.Broad");
    disk.file(caches + "com.a.Broad/0", 4096);
    const std::string first = disk.real(caches + "com.a.Broad/0");
    for (int number = 1; number < 100'000; ++number) {
        const std::string name =
            disk.real(caches + "com.a.Broad/").native() + std::to_string(number);
        ASSERT_EQ(::link(first.c_str(), name.c_str()), 0);
    }
    EXPECT_EQ(driver().call("measure", {{"url", "/Users/sam/Library"}}).at("bytes"), 409'600'000);
    scan();
    EXPECT_EQ(driver().get("crumbItems").at(0).at("bytes"), 409'600'000);
}

TEST_F(BadTrees, WithPipesSocketsAndDevicesHoldNobodyUp) {
    for (const std::string folder :
         {"/Users/sam/", "/Users/sam/Library/", "/Users/sam/Library/Caches/",
          "/Users/sam/Library/Logs/", "/Users/sam/Downloads/", "/Applications/",
          "/Users/sam/Library/Developer/Xcode/DerivedData/"}) {
        disk.pipe(folder + "pipe.dmg");
        disk.pipe(folder + "pipe.app");
    }
    disk.pipe("/Applications/Odd.app.d/Contents/Info.plist");
    disk.pipe("/Applications/Odd.app/Contents/Info.plist");
    disk.pipe("/Users/sam/Library/Application Support/MobileSync/Backup/b/Info.plist");
    disk.file("/Users/sam/Library/Application Support/MobileSync/Backup/b/data", 4096);
    disk.pipe("/Users/sam/Library/Preferences/com.a.b.plist");
    scan();
    driver().call("scanApps", {{"force", true}});
    driver().call("scanStorage", {{"force", true}});
    driver().call("refreshDisk");
    EXPECT_EQ(all(driver().get("backupItems"), "name"), Json::array({"An iPhone"}));
    EXPECT_EQ(driver().get("scanPhase"), "done");
}

TEST_F(BadTrees, WithPipesAndSocketsAreDeletedWithoutOpeningThem) {
    disk.pipe(caches + "com.a.One/pipe");
    disk.file(caches + "com.a.One/data", 4096);
    disk.link(caches + "com.a.One/loop", "loop");
    scan();
    driver().set({{"alwaysUseTrash", false}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    EXPECT_FALSE(disk.has(caches + "com.a.One"));
}

TEST_F(BadTrees, WithNamesOfAnyBytesAreSweptAndPutBack) {
    const std::vector<std::string> names{"two\nlines",
                                         "\xff\xfe",
                                         " ",
                                         "-rf",
                                         "*",
                                         "\\",
                                         "'",
                                         "\"",
                                         "$HOME",
                                         "e\u0301",
                                         "\u00e9",
                                         "tab\t",
                                         "\x01",
                                         "..a",
                                         "...",
                                         "a%2Fb",
                                         std::string(255, 'x')};
    for (const std::string& name : names) disk.text(caches + name + "/data", name);
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
    std::vector<std::string> left = disk.names(caches);
    // Hidden ones are no app's cache.
    EXPECT_EQ(left, (std::vector<std::string>{"...", "..a"}));
    driver().call("relaunch");
    driver().call("restore", {{"entry", driver().get("history").at(0).at("id")}});
    for (const std::string& name : names) EXPECT_EQ(disk.content(caches + name + "/data"), name);
}

TEST_F(BadTrees, WithPathsLongerThanTheSystemTakesAreMeasuredAndSwept) {
    const std::string name(250, 'n');
    std::string folder = disk.real(caches + "com.a.Long");
    std::filesystem::create_directories(folder);
    int at = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int level = 0; level < 40; ++level) {
        ASSERT_EQ(::mkdirat(at, name.c_str(), 0755), 0);
        const int next = ::openat(at, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ::close(at);
        at = next;
    }
    const int file = ::openat(at, "old.log", O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    ASSERT_EQ(::posix_fallocate(file, 0, 8192), 0);
    ::close(file);
    ::close(at);
    scan();
    EXPECT_EQ(driver().get("crumbItems").at(0).at("bytes"), 8192);
    driver().set({{"alwaysUseTrash", false}});
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_FALSE(disk.has(caches + "com.a.Long"));
}

TEST_F(BadTrees, ThatChangeWhileTheyAreLookedAtEndTheScanAllTheSame) {
    for (int number = 0; number < 300; ++number) {
        disk.file(caches + "com.a.App" + std::to_string(number) + "/sub/data", 4096);
    }
    for (int round = 0; round < 5; ++round) {
        driver().begin("startScan", {{"showOverview", true}});
        for (int number = round * 60; number < round * 60 + 60; ++number) {
            disk.remove(caches + "com.a.App" + std::to_string(number));
        }
        disk.text(caches + "com.a.App" + std::to_string(round * 60), "a file by now");
        driver().waitForAll();
    }
    EXPECT_EQ(driver().get("scanPhase"), "done");
    scan();
    driver().call("sweep", {{"items", {"caches"}}});
    EXPECT_EQ(driver().get("sweepProblem"), nullptr);
}

TEST_F(BadTrees, WithoutAHomeOrALibraryFindNothing) {
    disk.remove("/Users");
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "empty");
    driver().call("scanApps", {{"force", true}});
    driver().call("scanStorage", {{"force", true}});
    EXPECT_EQ(driver().get("apps"), Json::array());
    disk.text("/Users/sam/Library", "a file");
    disk.text("/Applications", "a file");
    scan();
    EXPECT_EQ(driver().get("scanPhase"), "empty");
}

TEST_F(BadTrees, WithListsThatLieAreReadAsFarAsTheyCan) {
    const std::string backups = "/Users/sam/Library/Application Support/MobileSync/Backup/";
    const std::string archives = "/Users/sam/Library/Developer/Xcode/Archives/day/";
    std::string deep = "<dict><key>Device Name</key>";
    for (int level = 0; level < 5000; ++level) deep += "<array>";
    // A binary list whose array holds itself.
    const std::string cycle(
        "bplist00\xa1\x00\x08\0\0\0\0\0\0\1\1\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\0"
        "\0\0\0\0\0\0\0\x0a",
        43);
    const std::vector<std::string> lies{
        "",
        "bplist00",
        cycle,
        deep,
        "<plist><array/></plist>",
        "<plist><dict><key>Device Name</key><integer>5</integer><key>Name</key><data/>"
        "<key>Last Backup Date</key><string>now</string><key>CreationDate</key><true/>"
        "<key>ApplicationProperties</key><array/></dict></plist>",
        "<plist><dict><key>Device Name</key><string>\xff\xfe</string></dict></plist>",
        "<plist><dict><key>Last Backup "
        "Date</key><date>9999999-99-99T99:99:99Z</date></dict></plist>",
        std::string(40'000'000, ' ')};
    for (std::size_t number = 0; number < lies.size(); ++number) {
        const std::string name = std::to_string(number);
        disk.text(backups + name + "/Info.plist", lies[number]);
        disk.file(backups + name + "/data", 4096);
        disk.text(archives + name + ".xcarchive/Info.plist", lies[number]);
        disk.file(archives + name + ".xcarchive/data", 4096);
        disk.text("/Applications/" + name + ".app/Contents/Info.plist", lies[number]);
    }
    scan();
    driver().call("scanApps", {{"force", true}});
    EXPECT_EQ(driver().get("backupItems").size(), lies.size());
    for (const Json& item : driver().get("backupItems")) {
        EXPECT_EQ(item.at("name").get<std::string>().substr(0, 9), "An iPhone");
    }
    EXPECT_EQ(driver().get("devItems").size(), lies.size());
    EXPECT_EQ(driver().get("apps").size(), lies.size());
    for (const Json& app : driver().get("apps")) EXPECT_EQ(app.at("version"), "—");
}

TEST_F(BadTrees, AToolThatPrintsWithoutEndOrSenseYieldsNothing) {
    disk.makeFolder("/Applications/Xcode.app");
    disk.tool("/usr/bin/xcrun", "head -c 20000000 /dev/urandom");
    disk.tool("/usr/local/bin/docker", "head -c 20000000 /dev/zero");
    disk.tool("/usr/sbin/diskutil", "head -c 20000000 /dev/zero | tr '\\0' '<'");
    scan();
    driver().call("refreshDisk");
    EXPECT_EQ(driver().get("devItems"), Json::array());
    EXPECT_EQ(driver().get("disk").at("systemBytes"), nullptr);
}

}  // namespace
}  // namespace morvane::test
