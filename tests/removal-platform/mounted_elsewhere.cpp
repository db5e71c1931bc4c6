#include "mounted_elsewhere.h"

#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <iostream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace morvane::folder {

namespace {

constexpr int refusedByTheSystem = 77;

bool write(const char* path, const std::string& text) {
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool written =
        ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(file);
    return written;
}

// Puts this process into a space of mounts of its own, as its superuser.
bool enterOwnSpace() {
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) {
        if (!write("/proc/self/setgroups", "deny") ||
            !write("/proc/self/uid_map", user + " " + user + " 1") ||
            !write("/proc/self/gid_map", group + " " + group + " 1")) {
            return false;
        }
    } else if (::unshare(CLONE_NEWNS) != 0) {
        return false;
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

}  // namespace

bool whereMountingIsAllowed(const std::function<void()>& body) {
    std::cout.flush();
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        if (!enterOwnSpace()) ::_exit(refusedByTheSystem);
        body();
        std::cout.flush();
        std::fflush(nullptr);
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    if (WIFEXITED(status) && WEXITSTATUS(status) == refusedByTheSystem) {
        std::cout << "[  NOTE    ] mounting is not allowed here; not tried with real mounts\n";
        return false;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    return true;
}

void mountMemory(const std::string& point, const std::string& bytes) {
    const std::string options = "size=" + bytes;
    EXPECT_EQ(::mount("tmpfs", point.c_str(), "tmpfs", MS_NOSUID | MS_NODEV, options.c_str()), 0)
        << point << " errno " << errno;
}

void mountFolder(const std::string& folder, const std::string& point) {
    EXPECT_EQ(::mount(folder.c_str(), point.c_str(), nullptr, MS_BIND, nullptr), 0)
        << point << " errno " << errno;
}

}  // namespace morvane::folder
