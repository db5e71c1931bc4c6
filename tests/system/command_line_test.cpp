// How the program starts and ends: options, the disk it is given, its status.

#include "support/tree_snapshot.h"
#include "system/system_test.h"

namespace morvane::test {
namespace {

using CommandLine = SystemTest;

void expectRefusal(const std::vector<std::string>& words) {
    const Refusal refusal = runDriver(words);
    EXPECT_EQ(refusal.status, 2);
    EXPECT_EQ(refusal.output, "");
    ASSERT_NE(refusal.errors, "");
    EXPECT_EQ(std::count(refusal.errors.begin(), refusal.errors.end(), '\n'), 1) << refusal.errors;
    EXPECT_EQ(refusal.errors.back(), '\n');
}

TEST_F(CommandLine, RefusesWrongOptionsInOneLine) {
    expectRefusal({});
    expectRefusal({"--disk"});
    expectRefusal({"--disc", disk.folder()});
    expectRefusal({disk.folder()});
    expectRefusal({"--disk", disk.folder(), "--verbose"});
    expectRefusal({"--disk", disk.folder(), disk.folder()});
    expectRefusal({"--help\nme"});
}

TEST_F(CommandLine, RefusesAFolderWithoutARoot) {
    expectRefusal({"--disk", disk.folder() / "root"});
    expectRefusal({"--disk", disk.folder() / "nowhere"});
    expectRefusal({"--disk", ""});
}

TEST_F(CommandLine, RefusesARootThatIsNoFolder) {
    const TestDisk other;
    std::filesystem::remove_all(other.folder() / "root");
    std::filesystem::copy_file("/etc/passwd", other.folder() / "root");
    expectRefusal({"--disk", other.folder()});
}

TEST_F(CommandLine, EndsWithZeroAtTheEndOfInputWhateverWasAnswered) {
    EXPECT_EQ(endDriver(), 0);
    driver().error({{"call", "nothing"}});
    EXPECT_EQ(endDriver(), 0);
}

TEST_F(CommandLine, AnswersALastLineThatHasNoLineFeed) {
    disk.writeHost();
    RunningProgram program({MORVANE_DRIVER, "--disk", disk.folder()});
    program.write(R"({"get":["scanPhase"]})");
    program.closeInput();
    EXPECT_EQ(program.readLine(), R"({"scanPhase":"idle"})");
    EXPECT_EQ(program.readLine(), std::nullopt);
    EXPECT_EQ(program.end(), 0);
}

TEST_F(CommandLine, WorksOnARelativeDiskAndOneBehindALink) {
    disk.writeHost();
    const TestDisk other;
    std::filesystem::create_directory_symlink(disk.folder(), other.folder() / "behind");
    DriverClient client(other.folder() / "behind");
    EXPECT_EQ(client.get("scanPhase"), "idle");
    // The program starts in "/", which makes this a relative path.
    DriverClient relative(disk.folder().relative_path());
    EXPECT_EQ(relative.get("scanPhase"), "idle");
}

TEST_F(CommandLine, TouchesNothingByStartingAndEnding) {
    disk.file("/Users/sam/Downloads/a.dmg", 4096);
    disk.writeHost();
    const TreeSnapshot before = takeSnapshot(disk.folder());
    DriverClient client(disk.folder());
    client.get("scanPhase");
    EXPECT_EQ(client.end(), 0);
    EXPECT_EQ(differences(before, takeSnapshot(disk.folder())), "");
}

TEST_F(CommandLine, EndsQuietlyWhenNobodyReadsItsAnswers) {
    disk.writeHost();
    RunningProgram program({"/bin/sh", "-c",
                            R"(printf '{"effects":true}\n{"effects":true}\n' | ")" MORVANE_DRIVER
                            R"(" --disk "$DISK" | : ; echo done)"},
                           {"DISK=" + disk.folder().native()});
    EXPECT_EQ(program.readLine(), "done");
    EXPECT_EQ(program.end(), 0);
    EXPECT_EQ(program.errors(), "");
}

}  // namespace
}  // namespace morvane::test
