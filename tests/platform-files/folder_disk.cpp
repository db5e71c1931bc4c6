#include "folder_disk.h"

#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace morvane::folder {

namespace {

std::filesystem::path newFolder(FolderDisk::Where where) {
    std::filesystem::path base = std::filesystem::temp_directory_path();
    if (where == FolderDisk::Where::memory && ::access("/dev/shm", W_OK) == 0) base = "/dev/shm";
    std::string name = base / "morvane-files-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) std::abort();
    return name;
}

// One item of the folder that is no folder itself is removed; the name of the first folder comes
// back, or nothing when the folder is empty.
std::string emptyOfFiles(int folder) {
    DIR* const listing = ::fdopendir(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::string first;
    while (const dirent* entry = ::readdir(listing)) {  // NOLINT(concurrency-mt-unsafe)
        const std::string name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (::unlinkat(folder, name.c_str(), 0) == 0) continue;
        if (::unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0) continue;
        first = name;
        break;
    }
    ::closedir(listing);
    return first;
}

}  // namespace

FolderDisk::FolderDisk(Where where, int extraThreads) : root_(newFolder(where)) {
    auto opened = DiskRoot::open(root_);
    if (!opened.ok()) std::abort();
    disk_.emplace(std::move(*opened));
    files_ = std::make_unique<DiskFileSystem>(*disk_, answers_, extraThreads);
}

FolderDisk::~FolderDisk() {
    files_.reset();
    disk_.reset();
    const Descriptor root(::open(root_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    removeAllBelow(root.get());
    ::rmdir(root_.c_str());
}

void FolderDisk::addFolder(const std::filesystem::path& path) const {
    std::filesystem::create_directories(place(path));
}

void FolderDisk::addFile(const std::filesystem::path& path, std::int64_t bytes,
                         std::optional<Instant> modified) const {
    addFolder(path.parent_path());
    const Descriptor file(::open(place(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    ASSERT_TRUE(file) << path;
    if (bytes > 0) {
        ASSERT_EQ(::posix_fallocate(file.get(), 0, bytes), 0) << path;
    }
    if (!modified) return;
    const auto since = modified->time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(since);
    const timespec time{seconds.count(), (since - seconds).count()};
    const timespec both[2] = {time, time};
    ASSERT_EQ(::futimens(file.get(), both), 0) << path;
}

void FolderDisk::addContents(const std::filesystem::path& path, std::string_view contents) const {
    addFolder(path.parent_path());
    std::ofstream(place(path), std::ios::binary) << contents;
}

void FolderDisk::addLink(const std::filesystem::path& path,
                         const std::filesystem::path& target) const {
    addFolder(path.parent_path());
    std::filesystem::create_symlink(target, place(path));
}

void FolderDisk::addPipe(const std::filesystem::path& path) const {
    addFolder(path.parent_path());
    ASSERT_EQ(::mkfifo(place(path).c_str(), 0644), 0) << path;
}

void removeAllBelow(int folder) {
    std::vector<std::string> names;
    Descriptor here(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    while (true) {
        std::string below = emptyOfFiles(here.get());
        if (!below.empty()) {
            ::fchmodat(here.get(), below.c_str(), 0700, 0);
            Descriptor next(::openat(here.get(), below.c_str(),
                                     O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
            if (!next) return;
            here = std::move(next);
            names.push_back(std::move(below));
        } else if (!names.empty()) {
            here = Descriptor(::openat(here.get(), "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            ::unlinkat(here.get(), names.back().c_str(), AT_REMOVEDIR);
            names.pop_back();
        } else {
            return;
        }
    }
}

}  // namespace morvane::folder
