#include <algorithm>
#include <gmock/gmock.h>

#include "platform/folder/tool_environment.h"
#include "processes/tool_disk.h"

namespace morvane::folder {
namespace {

using testing::Contains;
using testing::ElementsAre;

struct Root {
    ToolDisk disk;
    DiskRoot root = std::move(*DiskRoot::open(disk.top()));

    std::vector<std::string> of(const std::vector<std::string>& own,
                                const std::string& executable) const {
        return toolEnvironment(own, root, disk.folder(), executable);
    }
};

TEST(ToolEnvironment, PutsTheDisksFoldersAheadOfTheOldPath) {
    const Root made;
    const std::string top = made.disk.top().native();
    const std::string folder = made.disk.folder().native();
    EXPECT_THAT(made.of({"HOME=/h", "PATH=/usr/sbin:/sbin", "MORVANE_DISK=/other"},
                        "/Applications/Docker.app/bin/docker"),
                ElementsAre("HOME=/h",
                            "PATH=" + top + "/Applications/Docker.app/bin:" + top +
                                "/usr/local/bin:" + top + "/opt/homebrew/bin:/usr/sbin:/sbin",
                            "MORVANE_DISK=" + folder));
}

TEST(ToolEnvironment, HasAPathWhereThereWasNone) {
    const Root made;
    const std::string top = made.disk.top().native();
    EXPECT_THAT(made.of({}, "/usr/bin/xcrun"),
                Contains("PATH=" + top + "/usr/bin:" + top + "/usr/local/bin:" + top +
                         "/opt/homebrew/bin:/usr/bin:/bin"));
}

TEST(ToolEnvironment, ResolvesALinkedFolderInsideTheDisk) {
    const Root made;
    const std::string top = made.disk.top().native();
    std::filesystem::create_directories(made.disk.at("/Volumes/Data/brew/bin"));
    std::filesystem::create_directories(made.disk.at("/opt"));
    std::filesystem::create_symlink("/Volumes/Data/brew", made.disk.at("/opt/homebrew"));
    EXPECT_THAT(made.of({"PATH=/bin"}, "/opt/homebrew/bin/docker"),
                Contains("PATH=" + top + "/Volumes/Data/brew/bin:" + top + "/usr/local/bin:" + top +
                         "/Volumes/Data/brew/bin:/bin"));
}

TEST(ToolEnvironment, LetsAToolOfTheDiskWinOverOneOfTheMachine) {
    ToolDisk disk;
    disk.script("/opt/homebrew/bin/uname", "echo the disk");
    EXPECT_EQ(disk.output("uname"), "the disk\n");
}

TEST(ToolEnvironment, KeepsTheCommandsOfTheMachineWithinReach) {
    ToolDisk disk;
    EXPECT_EQ(disk.output("printf '%s ' b a | tr ' ' '\\n' | sort"), "a\nb\n");
}

}  // namespace
}  // namespace morvane::folder
