#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>

#include "platform/folder/disk_root.h"

namespace morvane::test {

// An empty disk in a folder of its own, which goes when this does.
class ScratchDisk {
public:
    ScratchDisk() {
        std::string pattern = testing::TempDir() + "/defaults-XXXXXX";
        top_ = ::mkdtemp(pattern.data());
        root_.emplace(std::move(*folder::DiskRoot::open(top_)));
    }
    ScratchDisk(const ScratchDisk&) = delete;
    ScratchDisk& operator=(const ScratchDisk&) = delete;
    ~ScratchDisk() {
        std::error_code ignored;
        std::filesystem::remove_all(top_, ignored);
    }

    [[nodiscard]] const folder::DiskRoot& root() const { return *root_; }
    // Where a path of the disk lies on this machine.
    [[nodiscard]] std::filesystem::path at(const std::string& path) const {
        return top_.native() + path;
    }
    void put(const std::string& path, const std::string& bytes) const {
        std::filesystem::create_directories(at(path).parent_path());
        std::ofstream(at(path), std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string bytes(const std::string& path) const {
        std::ifstream file(at(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] std::set<std::string> names(const std::string& folder) const {
        std::set<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(at(folder))) {
            found.insert(entry.path().filename().native());
        }
        return found;
    }

private:
    std::filesystem::path top_;
    std::optional<folder::DiskRoot> root_;
};

}  // namespace morvane::test
