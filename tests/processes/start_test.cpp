#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include "processes/tool_disk.h"

namespace morvane::folder {
namespace {

TEST(StartingATool, GivesItsStatusAndAllThatItWrote) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "printf 'one\\n\\000two'; exit 3");
    const auto result = disk.run("/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 3);
    EXPECT_EQ(result->output, std::string("one\n\0two", 8));
}

TEST(StartingATool, HandsOverItsArgumentsAsTheyAre) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "for a in \"$@\"; do printf '<%s>' \"$a\"; done");
    const auto result =
        disk.processes().run("/usr/bin/tool", {"", "a b", "$HOME", "\xff*", "/Users/sam"}, {}, {});
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->output, "<><a b><$HOME><\xff*></Users/sam>");
}

TEST(StartingATool, NamesABinaryByItsPathOnTheDisk) {
    ToolDisk disk;
    disk.write("/usr/bin/placeholder", "");
    std::filesystem::copy_file("/bin/cat", disk.at("/usr/bin/tool"));
    const auto result = disk.processes().run("/usr/bin/tool", {"/proc/self/cmdline"}, {}, {});
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->output, std::string("/usr/bin/tool\0/proc/self/cmdline\0", 33));
}

TEST(StartingATool, FailsWhereTheDiskHasNone) {
    ToolDisk disk;
    disk.write("/usr/bin/notes", "#!/bin/sh\nexit 0\n");
    disk.write("/usr/bin/empty", "", true);
    disk.write("/usr/bin/orphan", "#!/no/such/interpreter\n", true);
    std::filesystem::create_directories(disk.at("/usr/bin/folder"));
    ASSERT_EQ(::mkfifo(disk.at("/usr/bin/pipe").c_str(), 0755), 0);
    std::filesystem::create_symlink("/usr/bin/gone", disk.at("/usr/bin/dangling"));
    EXPECT_FALSE(disk.run("/bin/sh").has_value());  // this machine has one
    EXPECT_FALSE(disk.run("/usr/bin/notes").has_value());
    EXPECT_FALSE(disk.run("/usr/bin/empty").has_value());
    EXPECT_FALSE(disk.run("/usr/bin/orphan").has_value());
    EXPECT_FALSE(disk.run("/usr/bin/folder").has_value());
    EXPECT_FALSE(disk.run("/usr/bin/pipe").has_value());
    EXPECT_FALSE(disk.run("/usr/bin/dangling").has_value());
    EXPECT_FALSE(disk.run("usr/bin/notes").has_value());
    EXPECT_FALSE(disk.run("").has_value());
    EXPECT_TRUE(disk.effects().take().empty());
}

TEST(StartingATool, FailsWhileItIsBeingWritten) {
    ToolDisk disk;
    disk.write("/usr/bin/placeholder", "");
    std::filesystem::copy_file("/bin/true", disk.at("/usr/bin/tool"));
    const Descriptor writer(::open(disk.at("/usr/bin/tool").c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_FALSE(disk.run("/usr/bin/tool").has_value());
}

TEST(StartingATool, FailsWithAnArgumentThatNoProgramCanBeGiven) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "exit 0");
    EXPECT_FALSE(disk.processes().run("/usr/bin/tool", {std::string("a\0b", 3)}, {}, {}));
}

TEST(StartingATool, ResolvesItsLinksInsideTheDisk) {
    ToolDisk disk;
    disk.script("/opt/cellar/docker/bin/docker", "echo the one of the disk");
    std::filesystem::create_directories(disk.at("/usr/local/bin"));
    std::filesystem::create_symlink("/opt/cellar/docker/bin/docker",
                                    disk.at("/usr/local/bin/docker"));
    std::filesystem::create_symlink("../../../../../../../bin/sh", disk.at("/usr/local/bin/sh"));
    const auto result = disk.run("/usr/local/bin/docker");
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->output, "the one of the disk\n");
    EXPECT_FALSE(disk.run("/usr/local/bin/sh").has_value());
}

TEST(StartingATool, GivesItNothingButTheStandardDescriptors) {
    ToolDisk disk;
    const Descriptor leaked(::open("/dev/zero", O_RDONLY));  // not closed by starting a program
    ASSERT_TRUE(leaked);
    disk.write("/usr/bin/placeholder", "");
    std::filesystem::copy_file("/bin/ls", disk.at("/usr/bin/tool"));
    const auto result = disk.processes().run("/usr/bin/tool", {"/proc/self/fd"}, {}, {});
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->output, "0\n1\n2\n3\n");  // 3 is the listing's own
    EXPECT_EQ(disk.output("readlink /proc/$$/fd/0 /proc/$$/fd/2"), "/dev/null\n/dev/null\n");
    EXPECT_EQ(disk.output("cat; echo end; echo lost >&2"), "end\n");
}

TEST(StartingATool, MakesItLeadAGroupOfItsOwn) {
    ToolDisk disk;
    EXPECT_EQ(disk.output("set -- $(cat /proc/$$/stat); [ \"$5\" = $$ ] && echo leads"), "leads\n");
}

TEST(StartingATool, BlocksAndIgnoresNoSignalForIt) {
    ToolDisk disk;
    sigset_t all;
    sigset_t former;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &former);
    const auto formerPipe = ::signal(SIGPIPE, SIG_IGN);
    // Without the two signals that the C library keeps for itself (32 and 33).
    const std::string masks = disk.output(
        "while read n v r; do case $n in SigBlk:|SigIgn:) printf '%x ' $((0x$v & ~0x180000000));;"
        " esac; done < /proc/self/status");
    ::signal(SIGPIPE, formerPipe);
    ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
    EXPECT_EQ(masks, "0 0 ");
}

TEST(StartingATool, WorksInTheTopOfTheDisk) {
    ToolDisk disk;
    EXPECT_EQ(disk.output("pwd -P"), disk.top().native() + "\n");
    EXPECT_EQ(disk.output("printf %s \"$MORVANE_DISK\""), disk.folder().native());
}

TEST(StartingATool, IsAnEffectInTheDisksOwnTerms) {
    ToolDisk disk;
    disk.script("/bin/launchctl", "exit 1");
    std::ignore = disk.processes().run("/bin/launchctl",
                                       {"bootout", "gui/501", "/Users/sam/a\xff", "50%25"}, {}, {});
    std::ignore = disk.run("/bin/missing");
    const auto effects = disk.effects().take();
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effectJSON(effects[0]),
              R"({"run":["/bin/launchctl","bootout","gui/501","/Users/sam/a%FF","50%25"]})");
    EXPECT_TRUE(disk.effects().take().empty());
}

}  // namespace
}  // namespace morvane::folder
