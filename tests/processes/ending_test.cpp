#include <gtest/gtest.h>
#include <signal.h>
#include <thread>

#include "processes/tool_disk.h"
#include "tasks/pool.h"

namespace morvane::folder {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// Runs a tool and stops it once it has written "ready" into the pipe "gate" of its disk.
std::optional<ToolResult> runUntilReady(ToolDisk& disk, const std::string& path) {
    const Gate gate(disk.folder() / "gate");
    const StopSource stop;
    std::thread stopper([&] {
        EXPECT_EQ(gate.readLine(), "ready");
        stop.request_stop();
    });
    auto result = disk.run(path, std::nullopt, stop.get_token());
    stopper.join();
    return result;
}

TEST(EndingATool, CountsASignalAsAStatus) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "echo before; kill -9 $$");
    const auto result = disk.run("/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 137);
    EXPECT_EQ(result->output, "before\n");
}

TEST(EndingATool, AsksAtTheLimit) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "trap 'echo asked; exit 5' TERM; echo begun; while :; do :; done");
    const auto begun = Clock::now();
    const auto result = disk.run("/usr/bin/tool", 1s);
    ASSERT_TRUE(result.has_value());
    EXPECT_GE(Clock::now() - begun, 1s);
    EXPECT_EQ(result->status, 5);
    EXPECT_EQ(result->output, "begun\nasked\n");
}

TEST(EndingATool, IsNoSuccessEvenWhereTheToolSaysSo) {
    ToolDisk disk;
    disk.script(
        "/usr/bin/tool",
        "trap 'echo bye; exit 0' TERM; echo ready > $MORVANE_DISK/gate; while :; do :; done");
    const auto result = runUntilReady(disk, "/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 143);
    EXPECT_EQ(result->output, "bye\n");
}

TEST(EndingATool, ForcesTheWholeGroupTwoSecondsLater) {
    ToolDisk disk;
    const Alive child(disk.folder() / "child");
    disk.script("/usr/bin/tool",
                "trap '' TERM\n"
                "exec 3>$MORVANE_DISK/child\n"
                "sh -c 'while :; do :; done' >/dev/null &\n"
                "exec 3>&-; echo ready > $MORVANE_DISK/gate; while :; do :; done");
    const auto begun = Clock::now();
    const auto result = runUntilReady(disk, "/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_GE(Clock::now() - begun, 2s);
    EXPECT_EQ(result->status, 137);
    EXPECT_TRUE(child.goes());
}

TEST(EndingATool, LeavesNoChildOfOneThatWasCutShort) {
    ToolDisk disk;
    const Alive child(disk.folder() / "child");
    disk.script("/usr/bin/tool",
                "exec 3>$MORVANE_DISK/child\n"
                "sleep 1000 >/dev/null &\n"
                "exec 3>&-; echo ready > $MORVANE_DISK/gate; exec sleep 1000");
    const auto result = runUntilReady(disk, "/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 143);
    EXPECT_TRUE(child.goes());
}

TEST(EndingATool, AlsoReachesOneThatLeftItsGroup) {
    ToolDisk disk;
    const Gate gate(disk.folder() / "gate");
    // The tool joins a group of one of its children.
    disk.script(
        "/usr/bin/tool",
        "exec perl -e '$SIG{TERM} = \"IGNORE\"; $child = fork; if (!$child) { setpgrp(0, 0);"
        " sleep 1000; exit } setpgrp($child, $child); setpgrp(0, $child);"
        " open(G, \">\", \"$ENV{MORVANE_DISK}/gate\"); print G \"$child\\n\"; close(G);"
        " while (1) { sleep 1000 }'");
    StopSource stop;
    std::string child;
    std::thread stopper([&] {
        child = gate.readLine();
        stop.request_stop();
    });
    const auto result = disk.run("/usr/bin/tool", std::nullopt, stop.get_token());
    stopper.join();
    ::kill(std::stoi(child), SIGKILL);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 137);
}

TEST(EndingATool, ComesToOneThatFloodsItsOutput) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "exec yes");
    const auto result = disk.run("/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_NE(result->status, 0);
    EXPECT_EQ(result->output.size(), 67108864U);
}

TEST(EndingATool, LeavesOneAloneThatWritesJustAsMuchAsIsTaken) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "exec head -c 67108864 /dev/zero");
    const auto result = disk.run("/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 0);
    EXPECT_EQ(result->output.size(), 67108864U);
}

TEST(EndingATool, WaitsForOneThatHasClosedItsOutput) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "echo said; exec >&-; sleep 0.3; exit 7");
    const auto result = disk.run("/usr/bin/tool", 600s);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 7);
    EXPECT_EQ(result->output, "said\n");
}

TEST(EndingATool, AsksOneThatHasClosedItsOutputAtTheLimitToo) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "exec >&-; exec sleep 1000");
    const auto result = disk.run("/usr/bin/tool", 1s);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 143);
}

TEST(EndingATool, DoesNotWaitLongForAChildThatHoldsThePipe) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "sleep 1000 & echo $!; exit 4");
    const auto begun = Clock::now();
    const auto result = disk.run("/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_GE(Clock::now() - begun, 1s);
    EXPECT_EQ(result->status, 4);
    // A server that a tool has started goes on.
    const std::string child = result->output.substr(0, result->output.find('\n'));
    EXPECT_TRUE(isAlive(child));
    ::kill(std::stoi(child), SIGKILL);
}

TEST(EndingATool, StillReadsWhatAChildWritesSoonAfter) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "(sleep 0.1; echo child) & echo tool");
    const auto result = disk.run("/usr/bin/tool");
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 0);
    EXPECT_EQ(result->output, "tool\nchild\n");
}

TEST(EndingATool, StartsNoneThatIsNotWantedAnyMore) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "echo started > $MORVANE_DISK/trace");
    const StopSource stop;
    stop.request_stop();
    EXPECT_FALSE(disk.run("/usr/bin/tool", std::nullopt, stop.get_token()).has_value());
    EXPECT_FALSE(std::filesystem::exists(disk.folder() / "trace"));
    EXPECT_TRUE(disk.effects().take().empty());
}

TEST(EndingATool, ComesToAllOfThemAtTheEndOfTheProgram) {
    ToolDisk disk;
    const Gate first(disk.folder() / "first");
    const Gate second(disk.folder() / "second");
    disk.script("/usr/bin/obeys", "echo up > $MORVANE_DISK/first; exec sleep 1000");
    disk.script("/usr/bin/refuses",
                "trap '' TERM; echo up > $MORVANE_DISK/second; while :; do sleep 1000; done");
    std::optional<ToolResult> obeyed;
    std::optional<ToolResult> refused;
    {
        Pool pool(1);  // a tool that is waited for leaves room for another
        pool.post([&] { obeyed = disk.run("/usr/bin/obeys"); });
        pool.post([&] { refused = disk.run("/usr/bin/refuses"); });
        EXPECT_EQ(first.readLine(), "up");
        EXPECT_EQ(second.readLine(), "up");
        disk.processes().endAll();
    }
    ASSERT_TRUE(obeyed.has_value());
    ASSERT_TRUE(refused.has_value());
    EXPECT_EQ(obeyed->status, 143);
    EXPECT_EQ(refused->status, 137);
    EXPECT_FALSE(disk.run("/usr/bin/obeys").has_value());
}

TEST(EndingATool, IsLearntOfWhereTheProgramWasStartedWithItsChildrenIgnored) {
    const auto former = ::signal(SIGCHLD, SIG_IGN);
    ToolDisk disk;
    disk.script("/usr/bin/tool", "exit 3");
    const auto result = disk.run("/usr/bin/tool");
    ::signal(SIGCHLD, former);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->status, 3);
}

TEST(RunningTools, ManyAtOnceKeepTheirOutputsApart) {
    ToolDisk disk;
    disk.script("/usr/bin/tool", "cat $0 >/dev/null; echo $1; exit $1");
    std::vector<std::optional<ToolResult>> results(24);
    {
        Pool pool(4);
        for (std::size_t index = 0; index < results.size(); ++index) {
            pool.post([&, index] {
                results[index] =
                    disk.processes().run("/usr/bin/tool", {std::to_string(index)}, 600s, {});
            });
        }
    }
    for (std::size_t index = 0; index < results.size(); ++index) {
        ASSERT_TRUE(results[index].has_value());
        EXPECT_EQ(results[index]->status, static_cast<int>(index));
        EXPECT_EQ(results[index]->output, std::to_string(index) + "\n");
    }
    EXPECT_EQ(disk.effects().take().size(), 24U);
}

}  // namespace
}  // namespace morvane::folder
