#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "platform/folder/disk_root.h"

namespace morvane::folder {

// A disk in a temporary folder, with the home folder of a user "sam".
class HostDisk {
public:
    HostDisk() {
        std::string pattern =
            (std::filesystem::canonical(std::filesystem::temp_directory_path()) / "hostXXXXXX")
                .native();
        folder_ = ::mkdtemp(pattern.data());
        std::filesystem::create_directories(folder_ / "root/Users/sam");
        root_.emplace(std::move(*DiskRoot::open(folder_ / "root")));
    }
    ~HostDisk() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    HostDisk(const HostDisk&) = delete;
    HostDisk& operator=(const HostDisk&) = delete;

    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
    [[nodiscard]] std::filesystem::path file() const { return folder_ / "host.json"; }
    [[nodiscard]] const DiskRoot& root() const { return *root_; }
    // Where a path of the disk lies on this machine.
    [[nodiscard]] std::filesystem::path at(const std::string& path) const {
        return (folder_ / "root").native() + path;
    }
    void write(const std::string& text) const { std::ofstream(file(), std::ios::binary) << text; }

private:
    std::filesystem::path folder_;
    std::optional<DiskRoot> root_;
};

}  // namespace morvane::folder
