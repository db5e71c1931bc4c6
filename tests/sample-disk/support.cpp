#include "support.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace morvane::sample::test {
namespace {

namespace fs = std::filesystem;

Item itemAt(const fs::path& path) {
    struct stat facts{};
    EXPECT_EQ(::lstat(path.c_str(), &facts), 0) << path;
    Item item{.mode = facts.st_mode,
              .size = facts.st_size,
              .seconds = facts.st_mtim.tv_sec,
              .nanoseconds = facts.st_mtim.tv_nsec,
              .names = facts.st_nlink,
              .content = {}};
    if (S_ISLNK(facts.st_mode)) {
        item.content = fs::read_symlink(path).native();
    } else if (S_ISREG(facts.st_mode)) {
        item.content = contentOf(path);
    } else {
        item.size = 0;  // how long a folder's own list is belongs to the file system
    }
    return item;
}

/// In memory where there is plenty: a disk is thousands of small files, made and removed at once.
fs::path roomyFolder() {
    constexpr std::uintmax_t plenty = 4'000'000'000;
    std::error_code failed;
    const fs::path memory = "/dev/shm";
    const fs::space_info room = fs::space(memory, failed);
    const bool isUsable =
        !failed && room.available >= plenty && ::access(memory.c_str(), R_OK | W_OK | X_OK) == 0;
    return isUsable ? memory : fs::temp_directory_path();
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (roomyFolder() / "sample-disk-XXXXXX").native();
    EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

Ending run(const std::vector<std::string>& command, const fs::path& folder, const fs::path& disk) {
    const TemporaryFolder answers;
    const std::string output = answers.path() / "output";
    const std::string errors = answers.path() / "errors";
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    std::vector<std::string> values{"PATH=/usr/bin:/bin"};
    if (!disk.empty()) {
        values.push_back("MORVANE_DISK=" + disk.native());
    }
    std::vector<char*> environment;
    for (std::string& value : values) {
        environment.push_back(value.data());
    }
    environment.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), O_WRONLY | O_CREAT, 0600);
    ::posix_spawn_file_actions_addopen(&actions, 2, errors.c_str(), O_WRONLY | O_CREAT, 0600);
    if (!folder.empty()) {
        ::posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    }
    pid_t process = 0;
    const int failed = ::posix_spawn(&process, words.front().c_str(), &actions, nullptr,
                                     arguments.data(), environment.data());
    ::posix_spawn_file_actions_destroy(&actions);
    Ending ending;
    int status = 0;
    if (failed == 0 && ::waitpid(process, &status, 0) == process && WIFEXITED(status)) {
        ending.status = WEXITSTATUS(status);
    }
    ending.output = contentOf(output);
    ending.errors = contentOf(errors);
    return ending;
}

Ending sampleDisk(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), MORVANE_SAMPLE_DISK);
    return run(arguments);
}

void makeSmallDisk(const fs::path& folder, const std::vector<std::string>& more) {
    std::vector<std::string> arguments{folder.native(), "--size=50M", "--now=2026-11-21T12:00:00Z"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const Ending ending = sampleDisk(arguments);
    ASSERT_EQ(ending.status, 0) << ending.errors;
    ASSERT_EQ(ending.errors, "");
}

std::map<std::string, Item> treeOf(const fs::path& folder) {
    std::map<std::string, Item> tree{{".", itemAt(folder)}};
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        tree.emplace(entry.path().native().substr(folder.native().size() + 1),
                     itemAt(entry.path()));
    }
    return tree;
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return std::move(bytes).str();
}

}  // namespace morvane::sample::test
