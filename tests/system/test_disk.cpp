#include "system/test_disk.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

namespace morvane::test {

namespace {

namespace fs = std::filesystem;

fs::path placeFor(TestDisk::For purpose) {
    constexpr std::uintmax_t plenty = 4'000'000'000;
    std::error_code failed;
    const fs::path memory = "/dev/shm";
    const fs::space_info room = fs::space(memory, failed);
    const bool hasRoom =
        !failed && room.available >= plenty && ::access(memory.c_str(), R_OK | W_OK | X_OK) == 0;
    return purpose == TestDisk::For::quickness && hasRoom ? memory : fs::temp_directory_path();
}

void makeParents(const fs::path& place) {
    fs::create_directories(place.parent_path());
}

}  // namespace

TestDisk::TestDisk(For purpose)
    : host{{"home", "/Users/sam"},
           {"now", "2026-06-15T12:00:00Z"},
           {"fullDiskAccess", "granted"},
           {"volume",
            {{"name", "Macintosh HD"},
             {"total", 500'000'000'000},
             {"available", 100'000'000'000},
             {"availableForImportantUsage", 140'000'000'000}}}} {
    std::string pattern = (placeFor(purpose) / "morvane-system-XXXXXX").native();
    EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
    fs::create_directories(real("/Users/sam"));
}

TestDisk::~TestDisk() {
    std::error_code failed;
    fs::remove_all(folder_, failed);
    if (!failed) return;
    // The library gives up on the deepest of trees.
    const std::string command = "rm -rf -- '" + folder_.native() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

void TestDisk::writeHost() const {
    std::ofstream(folder_ / "host.json") << host.dump();
}

fs::path TestDisk::real(const std::string& path) const {
    return folder_.native() + "/root" + path;
}

void TestDisk::makeFolder(const std::string& path) {
    fs::create_directories(real(path));
}

void TestDisk::file(const std::string& path, std::int64_t bytes, double daysOld) {
    const fs::path place = real(path);
    makeParents(place);
    const int made = ::open(place.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    ASSERT_GE(made, 0) << path << ": " << std::strerror(errno);
    if (bytes > 0) {
        ASSERT_EQ(::posix_fallocate(made, 0, bytes), 0) << path;
    }
    ::close(made);
    setAge(path, daysOld);
}

void TestDisk::text(const std::string& path, const std::string& content, double daysOld) {
    makeParents(real(path));
    std::ofstream(real(path), std::ios::binary) << content;
    setAge(path, daysOld);
}

void TestDisk::link(const std::string& path, const std::string& target) {
    makeParents(real(path));
    fs::create_symlink(target, real(path));
}

void TestDisk::hardLink(const std::string& path, const std::string& existing) {
    makeParents(real(path));
    fs::create_hard_link(real(existing), real(path));
}

void TestDisk::pipe(const std::string& path) {
    makeParents(real(path));
    ASSERT_EQ(::mkfifo(real(path).c_str(), 0600), 0);
}

void TestDisk::socket(const std::string& path) {
    makeParents(real(path));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string place = real(path).native();
    ASSERT_LT(place.size(), sizeof address.sun_path);
    std::copy(place.begin(), place.end(), address.sun_path);
    const int made = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(made, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(made);
}

void TestDisk::propertyList(const std::string& path, const std::string& body) {
    text(path, R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">)" +
                   body + "</plist>\n");
}

void TestDisk::texts(const std::string& path, const std::map<std::string, std::string>& values) {
    std::string body = "<dict>";
    for (const auto& [key, value] : values) {
        body += "<key>" + key + "</key><string>" + value + "</string>";
    }
    propertyList(path, body + "</dict>");
}

void TestDisk::tool(const std::string& path, const std::string& script) {
    text(path, "#!/bin/sh\n" + script + "\n");
    fs::permissions(real(path), static_cast<fs::perms>(0755));
}

void TestDisk::app(const std::string& path, const std::string& identifier, std::int64_t bytes) {
    file(path + "/Contents/MacOS/main", bytes);
    if (identifier.empty()) return;
    texts(path + "/Contents/Info.plist",
          {{"CFBundleIdentifier", identifier}, {"CFBundleShortVersionString", "1.2"}});
}

void TestDisk::setAge(const std::string& path, double days) {
    const double changed = static_cast<double>(now) - days * day;
    timespec time{};
    time.tv_sec = static_cast<time_t>(std::floor(changed));
    time.tv_nsec = static_cast<long>((changed - std::floor(changed)) * 1e9);
    const timespec times[] = {time, time};
    ASSERT_EQ(::utimensat(AT_FDCWD, real(path).c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << path;
}

bool TestDisk::has(const std::string& path) const {
    return fs::symlink_status(real(path)).type() != fs::file_type::not_found;
}

std::string TestDisk::content(const std::string& path) const {
    std::ifstream stream(real(path), std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return std::move(bytes).str();
}

std::vector<std::string> TestDisk::names(const std::string& path) const {
    std::vector<std::string> list;
    std::error_code failed;
    for (const auto& entry : fs::directory_iterator(real(path), failed)) {
        list.push_back(entry.path().filename().native());
    }
    std::sort(list.begin(), list.end());
    return list;
}

void TestDisk::remove(const std::string& path) {
    fs::remove_all(real(path));
}

void TestDisk::gate(const std::string& name) {
    ASSERT_EQ(::mkfifo((folder_ / name).c_str(), 0600), 0);
}

int TestDisk::waitAtGate(const std::string& name) const {
    const int held = ::open((folder_ / name).c_str(), O_WRONLY | O_CLOEXEC);
    EXPECT_GE(held, 0);
    return held;
}

void TestDisk::open(int gate) {
    // A tool whose work was cancelled may have been ended by now.
    if (::write(gate, "go\n", 3) < 0) {
        EXPECT_EQ(errno, EPIPE);
    }
    ::close(gate);
}

}  // namespace morvane::test
