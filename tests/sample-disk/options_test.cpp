#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support.h"

namespace morvane::sample::test {
namespace {

namespace fs = std::filesystem;

void writeText(const fs::path& path, const std::string& text) {
    std::ofstream(path) << text;
}

/// One line on standard error, nothing on standard output, status 2.
void expectRefused(const Ending& ending) {
    EXPECT_EQ(ending.status, 2);
    EXPECT_EQ(ending.output, "");
    EXPECT_FALSE(ending.errors.empty());
    EXPECT_EQ(ending.errors.find('\n'), ending.errors.size() - 1) << ending.errors;
}

TEST(Place, IsRefusedAndUntouchedWhenAFolderHoldsAnything) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "disk");
    writeText(folder.path() / "disk/.hidden", "mine");
    const auto before = treeOf(folder.path());
    expectRefused(sampleDisk({folder.path() / "disk", "--size=50M"}));
    EXPECT_TRUE(treeOf(folder.path()) == before);
}

TEST(Place, IsRefusedAndUntouchedWhenAFileIsThere) {
    const TemporaryFolder folder;
    writeText(folder.path() / "disk", "mine");
    const auto before = treeOf(folder.path());
    expectRefused(sampleDisk({folder.path() / "disk", "--size=50M"}));
    EXPECT_TRUE(treeOf(folder.path()) == before);
}

TEST(Place, IsRefusedAndUntouchedWhenALinkLeadsNowhere) {
    const TemporaryFolder folder;
    fs::create_symlink(folder.path() / "elsewhere", folder.path() / "disk");
    const auto before = treeOf(folder.path());
    expectRefused(sampleDisk({folder.path() / "disk", "--size=50M"}));
    EXPECT_TRUE(treeOf(folder.path()) == before);
}

TEST(Place, MayBeAnEmptyFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "disk");
    makeSmallDisk(folder.path() / "disk");
    EXPECT_TRUE(fs::is_directory(folder.path() / "disk/root/Users/sam"));
}

TEST(Place, MayLackTheFoldersAboveIt) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "not/there/yet");
    EXPECT_TRUE(fs::is_directory(folder.path() / "not/there/yet/root"));
}

class WrongOptions : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(WrongOptions, EndWithOneLineAndNothingMade) {
    const TemporaryFolder folder;
    std::vector<std::string> arguments = GetParam();
    for (std::string& argument : arguments) {
        if (argument == "DIR") {
            argument = folder.path() / "disk";
        }
    }
    expectRefused(sampleDisk(arguments));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

using Words = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(
    Options, WrongOptions,
    testing::Values(
        Words{}, Words{"--size", "1G"}, Words{""}, Words{"DIR", "DIR"}, Words{"DIR", "--colour"},
        Words{"DIR", "-s"}, Words{"DIR", "--size"}, Words{"DIR", "--size="},
        Words{"DIR", "--size", "big"}, Words{"DIR", "--size", "0"}, Words{"DIR", "--size", "-5"},
        Words{"DIR", "--size", "8GB"}, Words{"DIR", "--size", "G"},
        Words{"DIR", "--size", "9223372036854775807G"}, Words{"DIR", "--entries", "0"},
        Words{"DIR", "--entries", "1.5"}, Words{"DIR", "--seed", "x"}, Words{"DIR", "--seed", "-1"},
        Words{"DIR", "--seed", "18446744073709551616"}, Words{"DIR", "--now", "today"},
        Words{"DIR", "--now", "2026-11-21"}, Words{"DIR", "--now", "2026-02-30T00:00:00Z"},
        Words{"DIR", "--now", "2026-11-21T12:00:00"}, Words{"DIR", "--now", "2026-11-21T24:00:00Z"},
        Words{"DIR", "--now", "2026-11-21T12:00:00.Z"}));

TEST(Moment, IsWrittenForTheClockOnlyWhenGiven) {
    const TemporaryFolder folder;
    makeSmallDisk(folder.path() / "given", {"--now", "2026-11-21T23:30:15.750-01:30"});
    ASSERT_EQ(sampleDisk({folder.path() / "present", "--size", "50M"}).status, 0);
    const auto given = nlohmann::json::parse(contentOf(folder.path() / "given/host.json"));
    const auto present = nlohmann::json::parse(contentOf(folder.path() / "present/host.json"));
    EXPECT_EQ(given.at("now"), "2026-11-22T01:00:15.000Z");
    EXPECT_FALSE(present.contains("now"));
}

TEST(Success, IsToldInThreeLines) {
    const TemporaryFolder folder;
    const std::string disk = folder.path() / "disk";
    const Ending ending = sampleDisk({disk, "--size", "60M", "--entries", "7000"});
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.errors, "");
    EXPECT_TRUE(ending.output.starts_with("A Mac disk lies in " + disk + "\n7000 entries\n"))
        << ending.output;
    EXPECT_TRUE(ending.output.ends_with(" bytes\n"));
}

}  // namespace
}  // namespace morvane::sample::test
