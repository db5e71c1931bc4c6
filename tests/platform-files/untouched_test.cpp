#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "collecting_visit.h"
#include "folder_disk.h"
#include "platform/folder/file_status.h"
#include "platform/folder/mount_points.h"

namespace morvane::folder {

namespace {

// The names of what was opened in a folder since this object was made, as the kernel saw it.
class OpenedThere {
public:
    explicit OpenedThere(const std::filesystem::path& place)
        : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        EXPECT_GE(::inotify_add_watch(events_.get(), place.c_str(), IN_OPEN), 0);
    }

    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> found;
        alignas(inotify_event) std::array<char, 16'384> buffer{};
        for (ssize_t got = 0; (got = ::read(events_.get(), buffer.data(), buffer.size())) > 0;) {
            for (const char* at = buffer.data(); at < buffer.data() + got;) {
                const auto* event = reinterpret_cast<const inotify_event*>(at);
                if (event->len > 0) found.insert(event->name);
                at += sizeof(inotify_event) + event->len;
            }
        }
        return found;
    }

private:
    Descriptor events_;
};

TEST(Untouched, PipesAndSocketsAreNeverOpened) {
    const FolderDisk disk;
    disk.addFile("/top/file", 4'096);
    disk.addPipe("/top/pipe");
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{.sun_family = AF_UNIX};
    const std::string place = disk.place("/top/socket");
    ASSERT_LT(place.size(), sizeof address.sun_path);
    place.copy(static_cast<char*>(address.sun_path), place.size());
    ASSERT_EQ(::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);

    const OpenedThere opened(disk.place("/top"));
    for (const auto* path : {"/top/pipe", "/top/socket"}) {
        EXPECT_EQ(disk.files().attributes(path)->kind, EntryKind::other);
        EXPECT_EQ(disk.files().probe(path), Probe::failed);
        EXPECT_FALSE(disk.files().readFile(path, 1'000).ok());
        EXPECT_FALSE(disk.files().list(path, Hidden::included).ok());
        EXPECT_EQ(disk.size(path), 0);
    }
    EXPECT_EQ(disk.files().list("/top", Hidden::included)->size(), 3U);
    EXPECT_EQ(disk.size("/top"), 4'096);
    Collected collected;
    ASSERT_TRUE(collect(disk.files(), "/top", {.links = true}, collected));
    EXPECT_TRUE(opened.names().empty());

    EXPECT_EQ(disk.files().probe("/top/file"), Probe::opened);
    EXPECT_EQ(opened.names(), std::set<std::string>{"file"});
}

TEST(Untouched, AWalkOpensNoFile) {
    const FolderDisk disk;
    disk.addFile("/top/file", 4'096);
    disk.addFolder("/top/folder");
    const OpenedThere opened(disk.place("/top"));
    EXPECT_EQ(disk.size("/top"), 4'096);
    EXPECT_EQ(opened.names(), std::set<std::string>{"folder"});
}

TEST(Times, OutsideTheRangeAreHeldBackToItsEnds) {
    EXPECT_EQ(instantOf({.tv_sec = 15'000'000'000}), Instant::max());
    EXPECT_EQ(instantOf({.tv_sec = -15'000'000'000}), Instant::min());
    EXPECT_EQ(instantOf({.tv_sec = -1, .tv_nsec = 500'000'000}),
              Instant(std::chrono::milliseconds(-500)));
}

TEST(Mounts, BelowTheTopOfThisMachineThereIsProc) {
    const Descriptor top(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const auto mounts = mountsBelow(top.get());
    ASSERT_TRUE(mounts);
    EXPECT_NE(std::find(mounts->begin(), mounts->end(), "/proc"), mounts->end());
    const Descriptor proc(::open("/proc", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    EXPECT_EQ(std::find(mountsBelow(proc.get())->begin(), mountsBelow(proc.get())->end(), "/proc"),
              mountsBelow(proc.get())->end());
}

TEST(Mounts, AreKnownOfFoldersAskedOneByOne) {
    struct statx status{};
    ASSERT_TRUE(askStatus(AT_FDCWD, "/proc", STATX_TYPE, status));
    EXPECT_TRUE(isMountPoint(AT_FDCWD, "/proc", status));
    ASSERT_TRUE(askStatus(AT_FDCWD, "/proc/self", STATX_TYPE, status));
    EXPECT_FALSE(isMountPoint(AT_FDCWD, "/proc/self", status));
}

}  // namespace

}  // namespace morvane::folder
