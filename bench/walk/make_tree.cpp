#include "make_tree.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace morvane::bench {

namespace {

constexpr int folderCount = 30'000;
constexpr int fileCount = 400'000;
// Folders have up to this many subfolders, which makes a tree of about seven levels.
constexpr std::size_t fanOut = 6;

bool complain(const std::string& what) {
    std::cerr << what << ": " << std::strerror(errno) << '\n';  // NOLINT(concurrency-mt-unsafe)
    return false;
}

// One file in sixteen has something in it; a walk costs the same for the others.
bool makeFile(int folder, int number) {
    std::array<char, 3'000> content{};
    const std::string name = "item-" + std::to_string(number) + ".data";
    const int file = ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (file < 0) return complain(name);
    bool good = true;
    if (number % 16 == 0) {
        const auto wanted = content.size();
        good = ::write(file, content.data(), wanted) == static_cast<ssize_t>(wanted);
    }
    ::close(file);
    return good || complain(name);
}

}  // namespace

bool makeTree(const std::string& folder) {
    if (::mkdir(folder.c_str(), 0755) != 0) return complain(folder);
    std::vector<std::string> folders{folder};
    std::size_t parent = 0;
    for (int made = 1; made < folderCount; ++made) {
        if ((folders.size() - 1) / fanOut > parent) ++parent;
        std::string path = folders[parent] + "/folder-" + std::to_string(made);
        if (::mkdir(path.c_str(), 0755) != 0) return complain(path);
        folders.push_back(std::move(path));
    }
    int number = 0;
    for (std::size_t at = 0; at < folders.size(); ++at) {
        const int opened = ::open(folders[at].c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (opened < 0) return complain(folders[at]);
        const auto upTo = static_cast<int>((at + 1) * fileCount / folders.size());
        for (; number < upTo; ++number) {
            if (!makeFile(opened, number)) return false;
        }
        ::close(opened);
    }
    return true;
}

}  // namespace morvane::bench
