#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace morvane::sample::test {

/// A folder of its own for one test, removed with all in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// How a program ended and what it said.
struct Ending {
    int status = -1;  ///< exit status; -1 when it did not start or was killed
    std::string output;
    std::string errors;

    friend bool operator==(const Ending&, const Ending&) = default;
};

/// Starts a program by its path, in `folder` when that is not empty, and waits for its end.
/// `disk` is what it finds in MORVANE_DISK; the variable is not set when empty.
[[nodiscard]] Ending run(const std::vector<std::string>& command,
                         const std::filesystem::path& folder = {},
                         const std::filesystem::path& disk = {});

/// The program under test with these arguments.
[[nodiscard]] Ending sampleDisk(std::vector<std::string> arguments);

/// Makes a small disk at `folder` with seed 1 at noon of 2026-11-21; the test fails if that fails.
void makeSmallDisk(const std::filesystem::path& folder, const std::vector<std::string>& more = {});

/// All that two disks have to have in common.
struct Item {
    mode_t mode = 0;
    std::int64_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    nlink_t names = 0;
    std::string content;  ///< of a file, or target of a link

    friend bool operator==(const Item&, const Item&) = default;
};

/// Everything below `folder`, the folder itself as ".", by relative path.
[[nodiscard]] std::map<std::string, Item> treeOf(const std::filesystem::path& folder);

[[nodiscard]] std::string contentOf(const std::filesystem::path& file);

}  // namespace morvane::sample::test
