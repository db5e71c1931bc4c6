#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <plist/plist.h>
#include <string_view>

#include "support.h"

namespace morvane::sample::test {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t moment = 1'795'262'400;
constexpr std::int64_t day = 86'400;

class Contents : public testing::Test {
protected:
    void SetUp() override { makeSmallDisk(folder_.path() / "disk"); }

    [[nodiscard]] fs::path root() const { return folder_.path() / "disk/root"; }
    [[nodiscard]] fs::path library() const { return root() / "Users/sam/Library"; }

    [[nodiscard]] std::map<std::string, Item> tree() const { return treeOf(root()); }

    [[nodiscard]] nlohmann::json host() const {
        return nlohmann::json::parse(contentOf(folder_.path() / "disk/host.json"));
    }

private:
    TemporaryFolder folder_;
};

bool isReadable(const std::string& bytes) {
    plist_t list = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &list);
    const bool isThere = list != nullptr;
    plist_free(list);
    return isThere;
}

TEST_F(Contents, PropertyListsOfBothFormsCanBeReadButTheDamagedOne) {
    std::size_t binary = 0;
    std::size_t xml = 0;
    std::vector<std::string> unreadable;
    for (const auto& [path, item] : tree()) {
        if (!path.ends_with(".plist") || !S_ISREG(item.mode)) {
            continue;
        }
        (item.content.starts_with("bplist00") ? binary : xml) += 1;
        if (!isReadable(item.content)) {
            unreadable.push_back(path);
        }
    }
    EXPECT_GT(binary, 40U);
    EXPECT_GT(xml, 40U);
    EXPECT_EQ(unreadable,
              std::vector<std::string>{"Applications/Fieldnotes.app/Contents/Info.plist"});
}

TEST_F(Contents, EveryApplicationHasAnIconOfPictures) {
    using namespace std::string_view_literals;
    std::size_t icons = 0;
    for (const auto& [path, item] : tree()) {
        if (!path.ends_with("/AppIcon.icns")) {
            continue;
        }
        ++icons;
        const std::string_view bytes = item.content;
        ASSERT_GT(bytes.size(), 48U);
        EXPECT_EQ(bytes.substr(0, 4), "icns");
        std::size_t length = 0;
        for (const char letter : bytes.substr(4, 4)) {
            length = length << 8U | static_cast<unsigned char>(letter);
        }
        EXPECT_EQ(length, bytes.size()) << path;
        EXPECT_EQ(bytes.substr(8, 4), "ic07");
        EXPECT_EQ(bytes.substr(16, 24), "\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\0\x80\0\0\0\x80"sv);
        EXPECT_TRUE(bytes.ends_with("\0\0\0\0IEND\xae\x42\x60\x82"sv)) << path;
    }
    EXPECT_EQ(icons, 48U);
}

TEST_F(Contents, WhatTheHostSpeaksOfIsThere) {
    const nlohmann::json answers = host();
    const auto isThere = [&](const std::string& path) {
        return fs::exists(fs::symlink_status(root() / path.substr(1)));
    };
    for (const std::string key : {"hidden", "packages", "aliases"}) {
        for (const auto& path : answers.at(key)) {
            EXPECT_TRUE(isThere(path)) << path;
        }
    }
    for (const std::string key : {"metadata", "dates", "displayNames"}) {
        for (const auto& entry : answers.at(key).items()) {
            EXPECT_TRUE(isThere(entry.key())) << entry.key();
        }
    }
    std::vector<std::string> missing;
    for (const auto& entry : answers.at("registeredApplications").items()) {
        if (!isThere(entry.value())) {
            missing.push_back(entry.key());
        }
    }
    EXPECT_EQ(missing, std::vector<std::string>{"com.faraway.Lighthouse"});
    for (const auto& application : answers.at("runningApplications")) {
        EXPECT_TRUE(isThere(application.at("bundlePath")));
    }
    EXPECT_EQ(answers.at("runningApplications").size(), 3U);
    EXPECT_EQ(answers.at("home"), "/Users/sam");
    EXPECT_EQ(answers.at("fullDiskAccess"), "granted");
    EXPECT_EQ(answers.at("volume").at("total"), 494'384'795'648);
    EXPECT_FALSE(answers.contains("bundle"));
}

TEST_F(Contents, LogsAreYoungAndOldOnBothSidesOfThirtyDays) {
    const auto all = tree();
    const std::string logs = "Users/sam/Library/Logs/";
    EXPECT_LT(all.at(logs + "Tidewatch/tide-old.log").seconds, moment - 30 * day);
    EXPECT_GT(all.at(logs + "Tidewatch/tide-young.log").seconds, moment - 30 * day);
    EXPECT_EQ(all.at(logs + "empty-old.log").size, 0);
    EXPECT_TRUE(fs::is_empty(library() / "Logs/PhotosUpgrade"));
}

TEST_F(Contents, AFolderIsAsOldAsTheNewestThingInIt) {
    const auto all = tree();
    const std::string folder = "Users/sam/Library/Logs/Tidewatch";
    EXPECT_EQ(all.at(folder).seconds, all.at(folder + "/tide.log").seconds);
}

TEST_F(Contents, RemainsOfRemovedApplicationsHoldAMegabyteOnASmallDiskToo) {
    const auto size = [&](const std::string& path) { return fs::file_size(library() / path); };
    EXPECT_GE(size("Application Support/com.tapestry.Weaver/Library.tapestry"), 1'000'000U);
    EXPECT_GE(size("Containers/io.lumen.Darkroom/Data/Documents/Negatives.db"), 1'000'000U);
    EXPECT_LT(size("Application Support/com.twohalves.Meter/data.db"), 1'000'000U);
    EXPECT_GE(size("Application Support/com.twohalves.Meter/data.db") +
                  size("Caches/com.twohalves.Meter/Cache.db"),
              1'000'000U);
    EXPECT_LT(size("Application Support/com.tinyleft.Crumb/crumb.db"), 1'000'000U);
}

TEST_F(Contents, NamesAreKeptByteForByte) {
    const fs::path names = root() / "Users/sam/Documents/Names of the World";
    for (const std::string_view name :
         {"two\nlines.txt", "r\xe9sum\xe9 latin.txt", "cut \xe6\x97",
          "cafe\u0301 composed apart.txt", "caf\u00e9 composed.txt", "%41 and %2F.txt",
          "会议记录 2026.txt", "ملاحظات الاجتماع.txt", "🦊 ideas 🚀.md", "trailing blank "}) {
        EXPECT_TRUE(fs::is_regular_file(names / name)) << name;
    }
    EXPECT_TRUE(fs::is_regular_file(names / (std::string(251, 'n') + ".txt")));
}

TEST_F(Contents, LinksAreOfEverySort) {
    const fs::path links = root() / "Users/sam/Documents/Links";
    EXPECT_EQ(fs::read_symlink(links / "absolute"), "/Users/sam/Documents/Links/target.txt");
    EXPECT_EQ(fs::read_symlink(links / "loop-a"), "loop-b");
    EXPECT_EQ(fs::read_symlink(links / "loop-b"), "loop-a");
    EXPECT_EQ(fs::read_symlink(links / "nowhere"), "/Users/sam/Documents/gone.txt");
    EXPECT_EQ(fs::hard_link_count(links / "target.txt"), 2U);
    EXPECT_EQ(fs::read_symlink(root() / "Volumes/Macintosh HD"), "/");
}

TEST_F(Contents, TheProbesOfFullDiskAccessCanBeOpened) {
    for (const std::string path : {"Library/Application Support/com.apple.TCC/TCC.db",
                                   "Users/sam/Library/Application Support/com.apple.TCC/TCC.db",
                                   "Users/sam/Library/Safari/Bookmarks.plist"}) {
        EXPECT_GT(contentOf(root() / path).size(), 0U) << path;
    }
    EXPECT_TRUE(fs::is_directory(library() / "Mail"));
}

TEST_F(Contents, ABackupWasInterruptedAndOthersSayWhatTheyAre) {
    std::size_t labelled = 0;
    std::size_t bare = 0;
    for (const auto& entry :
         fs::directory_iterator(library() / "Application Support/MobileSync/Backup")) {
        if (entry.is_directory()) {
            (fs::exists(entry.path() / "Info.plist") ? labelled : bare) += 1;
        }
    }
    EXPECT_EQ(labelled, 4U);
    EXPECT_EQ(bare, 1U);
}

}  // namespace
}  // namespace morvane::sample::test
