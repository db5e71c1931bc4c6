#include "processes/tool_disk.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <sstream>
#include <sys/stat.h>

namespace morvane::folder {

namespace {

std::string readAll(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

}  // namespace

ToolDisk::ToolDisk() {
    std::string pattern =
        (std::filesystem::canonical(std::filesystem::temp_directory_path()) / "toolsXXXXXX")
            .native();
    folder_ = ::mkdtemp(pattern.data());
    std::filesystem::create_directories(top());
    Result<DiskRoot> opened = DiskRoot::open(top());
    root_.emplace(std::move(*opened));
    processes_.emplace(*root_, folder_, effects_);
}

ToolDisk::~ToolDisk() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void ToolDisk::write(const std::string& path, const std::string& bytes, bool executable) const {
    const std::filesystem::path place = at(path);
    std::filesystem::create_directories(place.parent_path());
    std::ofstream(place, std::ios::binary) << bytes;
    ::chmod(place.c_str(), executable ? 0755 : 0644);
}

std::string ToolDisk::read(const std::string& path) const {
    return readAll(at(path));
}

std::string ToolDisk::output(const std::string& body) {
    script("/usr/bin/asked", body);
    const auto result = run("/usr/bin/asked");
    return result ? result->output : "not started";
}

Gate::Gate(const std::filesystem::path& place) : place_(place) {
    EXPECT_EQ(::mkfifo(place_.c_str(), 0600), 0);
}

std::string Gate::readLine() const {
    std::ifstream stream(place_);
    std::string line;
    std::getline(stream, line);
    return line;
}

Alive::Alive(const std::filesystem::path& place) {
    EXPECT_EQ(::mkfifo(place.c_str(), 0600), 0);
    pipe_ = Descriptor(::open(place.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

bool Alive::goes() const {
    pollfd watched{pipe_.get(), POLLIN, 0};
    return ::poll(&watched, 1, 60'000) == 1 && (watched.revents & POLLHUP) != 0;
}

bool isAlive(const std::string& process) {
    std::ifstream status("/proc/" + process + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("State:")) return line.find('Z') == std::string::npos;
    }
    return false;
}

}  // namespace morvane::folder
