#include "platform/folder/file_defaults.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "defaults/scratch_disk.h"

namespace morvane::folder {
namespace {

using namespace std::chrono_literals;

constexpr const char* folderPath = "/Users/sam/Library/Preferences";
constexpr const char* path = "/Users/sam/Library/Preferences/io.morvane.plist";
constexpr Instant noon{std::chrono::seconds(1795262400)};

// While it lives, no file of this process grows beyond `bytes`: writes fail as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limited{bytes, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        (void)std::signal(SIGXFSZ, oldHandler_);
    }

private:
    void (*oldHandler_)(int);
    rlimit old_{};
};

class FileDefaultsTest : public testing::Test {
protected:
    test::ScratchDisk disk;

    // What the file holds now.
    PropertyList stored() { return readPropertyList(disk.bytes(path)).value_or(PropertyList()); }
};

TEST_F(FileDefaultsTest, AreThereAgainAfterARestart) {
    {
        FileDefaults defaults(disk.root(), path);
        defaults.setBoolean("yes", true);
        defaults.setText("text", "Füße");
        defaults.setDate("date", noon + 123456789ns);
        defaults.setData("data", std::string("\0\xff", 2));
        defaults.setTexts("texts", {"a", "b"});
        defaults.setText("gone", "a");
        defaults.remove("gone");
    }
    const FileDefaults again(disk.root(), path);
    EXPECT_EQ(again.boolean("yes"), true);
    EXPECT_EQ(again.text("text"), "Füße");
    EXPECT_EQ(again.date("date"), noon + 123457us);
    EXPECT_EQ(again.data("data"), std::string("\0\xff", 2));
    EXPECT_EQ(again.texts("texts"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(again.text("gone"), std::nullopt);
}

TEST_F(FileDefaultsTest, AreOneBinaryPropertyListOnceFlushed) {
    FileDefaults defaults(disk.root(), path);
    EXPECT_FALSE(std::filesystem::exists(disk.at("/Users")));
    for (int round = 0; round < 100; ++round) defaults.setText("round", std::to_string(round));
    defaults.flush();
    EXPECT_EQ(disk.names(folderPath), std::set<std::string>{"io.morvane.plist"});
    EXPECT_TRUE(disk.bytes(path).starts_with("bplist00"));
    EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{{"round", {std::string("99")}}}}));
    struct stat status{};
    ASSERT_EQ(::stat(disk.at(path).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST_F(FileDefaultsTest, ReadAnXMLFileAndKeepKeysTheyDoNotKnow) {
    disk.put(path,
             "<plist version=\"1.0\"><dict><key>NSWindow Frame</key><string>0 0 1 1</string>"
             "<key>numbers</key><array><integer>18446744073709551615</integer><real>1.5</real>"
             "<dict><key>a</key><data>AAE=</data></dict></array>"
             "<key>list</key><array><string>a</string><true/></array>"
             "<key>yes</key><true/></dict></plist>");
    FileDefaults defaults(disk.root(), path);
    EXPECT_EQ(defaults.boolean("yes"), true);
    EXPECT_EQ(defaults.texts("list"), std::nullopt);
    defaults.setBoolean("yes", false);
    defaults.flush();
    const PropertyList::Array numbers{
        {UINT64_MAX},
        {1.5},
        {PropertyList::Dictionary{{"a", {PropertyList::Data{std::string("\0\1", 2)}}}}}};
    EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{
                            {"NSWindow Frame", {std::string("0 0 1 1")}},
                            {"numbers", {numbers}},
                            {"list", {PropertyList::Array{{std::string("a")}, {true}}}},
                            {"yes", {false}}}}));
}

TEST_F(FileDefaultsTest, AreEmptyWhereTheFileSaysNothing) {
    const std::vector<std::string> contents{"", "garbage", "bplist00", "<plist><array/></plist>",
                                            std::string(100000, '<')};
    for (const std::string& content : contents) {
        disk.put(path, content);
        FileDefaults defaults(disk.root(), path);
        EXPECT_EQ(defaults.text("a"), std::nullopt);
        EXPECT_EQ(disk.bytes(path), content);
        defaults.setText("a", "b");
        defaults.flush();
        EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{{"a", {std::string("b")}}}}));
    }
}

TEST_F(FileDefaultsTest, TryTheLastWriteOnceMoreAtTheirEnd) {
    disk.put("/Users", "in the way");
    {
        FileDefaults defaults(disk.root(), path);
        defaults.setText("a", "b");
        defaults.flush();
        std::filesystem::remove(disk.at("/Users"));
    }
    EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{{"a", {std::string("b")}}}}));
}

TEST_F(FileDefaultsTest, PutNothingOldInPlaceOfWhatCameAfterTheyWereStopped) {
    disk.put("/Users", "in the way");
    {
        FileDefaults old(disk.root(), path);
        old.setText("a", "old");
        old.stop();
        old.flush();
        std::filesystem::remove(disk.at("/Users"));
        FileDefaults defaults(disk.root(), path);
        defaults.setText("a", "new");
        defaults.flush();
    }
    EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{{"a", {std::string("new")}}}}));
}

TEST_F(FileDefaultsTest, DoNotWaitForAPipeAndTakeItsPlace) {
    std::filesystem::create_directories(disk.at(folderPath));
    ASSERT_EQ(::mkfifo(disk.at(path).c_str(), 0600), 0);
    FileDefaults defaults(disk.root(), path);
    EXPECT_EQ(defaults.text("a"), std::nullopt);
    defaults.setText("a", "b");
    defaults.flush();
    EXPECT_TRUE(std::filesystem::is_regular_file(disk.at(path)));
}

TEST_F(FileDefaultsTest, AreReadThroughALinkThatTheNextWriteReplaces) {
    disk.put("/elsewhere.plist", "<plist><dict><key>a</key><true/></dict></plist>");
    std::filesystem::create_directories(disk.at(folderPath));
    std::filesystem::create_symlink("/elsewhere.plist", disk.at(path));
    FileDefaults defaults(disk.root(), path);
    EXPECT_EQ(defaults.boolean("a"), true);
    defaults.setText("b", "c");
    defaults.flush();
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(disk.at(path))));
    EXPECT_EQ(disk.bytes("/elsewhere.plist"), "<plist><dict><key>a</key><true/></dict></plist>");
    EXPECT_TRUE(stored().find("b"));
}

TEST_F(FileDefaultsTest, FollowALinkedFolderInsideTheDisk) {
    std::filesystem::create_directories(disk.at("/Volumes/Other/Preferences"));
    std::filesystem::create_directories(disk.at("/Users/sam/Library"));
    std::filesystem::create_symlink("/Volumes/Other/Preferences", disk.at(folderPath));
    FileDefaults defaults(disk.root(), path);
    defaults.setText("a", "b");
    defaults.flush();
    EXPECT_EQ(disk.names("/Volumes/Other/Preferences"), std::set<std::string>{"io.morvane.plist"});
}

TEST_F(FileDefaultsTest, TakeAwayWhatAKilledProcessLeftWithoutWritingIntoIt) {
    disk.put("/letter.txt", "dear");
    std::filesystem::create_directories(disk.at(folderPath));
    // A second name of some other file stands where the temporary file goes.
    std::filesystem::create_hard_link(disk.at("/letter.txt"),
                                      disk.at(std::string(folderPath) + "/.io.morvane.plist.tmp"));
    FileDefaults defaults(disk.root(), path);
    defaults.setText("a", "b");
    defaults.flush();
    EXPECT_EQ(disk.names(folderPath), std::set<std::string>{"io.morvane.plist"});
    EXPECT_EQ(disk.bytes("/letter.txt"), "dear");
}

TEST_F(FileDefaultsTest, KeepAFileNameAsLongAsAnyMayBe) {
    const std::string longest = std::string(folderPath) + "/" + std::string(249, 'n') + ".plist";
    FileDefaults defaults(disk.root(), longest);
    defaults.setText("a", "b");
    defaults.flush();
    EXPECT_TRUE(readPropertyList(disk.bytes(longest)));
}

TEST_F(FileDefaultsTest, TryAgainAfterAWriteThatFailed) {
    // A folder stands where the file goes.
    std::filesystem::create_directories(disk.at(path) / "inner");
    FileDefaults defaults(disk.root(), path);
    defaults.setText("a", "b");
    defaults.flush();
    EXPECT_EQ(disk.names(folderPath), std::set<std::string>{"io.morvane.plist"});
    EXPECT_EQ(disk.names(path), std::set<std::string>{"inner"});
    EXPECT_EQ(defaults.text("a"), "b");

    std::filesystem::remove_all(disk.at(path));
    defaults.setText("c", "d");
    defaults.flush();
    EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{{"a", {std::string("b")}},
                                                               {"c", {std::string("d")}}}}));
}

TEST_F(FileDefaultsTest, LeaveTheOldFileAndNothingElseWhenTheDiskIsFull) {
    FileDefaults defaults(disk.root(), path);
    defaults.setText("a", "b");
    defaults.flush();
    const std::string old = disk.bytes(path);
    {
        // Some of the new file fits.
        const FileSizeLimit limit(4096);
        defaults.setData("c", std::string(100000, 'x'));
        defaults.flush();
    }
    EXPECT_EQ(disk.bytes(path), old);
    EXPECT_EQ(disk.names(folderPath), std::set<std::string>{"io.morvane.plist"});
    defaults.setText("d", "e");
    defaults.flush();
    EXPECT_EQ(stored().dictionary()->size(), 3U);
}

TEST_F(FileDefaultsTest, OutliveAFolderThatIsAFile) {
    disk.put("/Users/sam/Library", "");
    FileDefaults defaults(disk.root(), path);
    defaults.setText("a", "b");
    defaults.flush();
    EXPECT_EQ(defaults.text("a"), "b");
    EXPECT_EQ(disk.names("/Users/sam"), std::set<std::string>{"Library"});
}

TEST_F(FileDefaultsTest, WriteNothingOnceStopped) {
    FileDefaults defaults(disk.root(), path);
    defaults.setText("a", "b");
    defaults.stop();
    defaults.setText("a", "c");
    defaults.setBoolean("d", true);
    defaults.remove("a");
    defaults.flush();
    EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{{"a", {std::string("b")}}}}));
    EXPECT_EQ(defaults.text("a"), "b");
    EXPECT_EQ(defaults.boolean("d"), std::nullopt);
}

TEST_F(FileDefaultsTest, KeepTheOldValueWhereTheNewOneCouldNotBeReadBack) {
    FileDefaults defaults(disk.root(), path);
    defaults.setData("history", "old");
    defaults.setData("history", std::string(33554432, 'x'));
    defaults.setData("new", std::string(33554432, 'x'));
    defaults.setText("text", "\xff");
    defaults.setTexts("texts", {"a", "\xff"});
    defaults.setText("key\xff", "a");
    defaults.setText("b", "c");
    defaults.flush();
    EXPECT_EQ(stored(), (PropertyList{PropertyList::Dictionary{
                            {"history", {PropertyList::Data{"old"}}}, {"b", {std::string("c")}}}}));
    EXPECT_EQ(defaults.data("history"), "old");
    EXPECT_EQ(defaults.data("new"), std::nullopt);
}

}  // namespace
}  // namespace morvane::folder
