#include "platform/folder/defaults_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/folder/descriptor.h"

namespace morvane::folder {

namespace {

// One fixed name, so that what a killed process leaves behind does not pile up; short enough for
// every name that fits a file system.
std::string temporaryName(const std::filesystem::path& path) {
    constexpr std::size_t longest = 200;
    return "." + path.filename().native().substr(0, longest) + ".tmp";
}

// 0 or an errno.
int writeAll(int file, const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        if (count == 0) return EIO;
        done += static_cast<std::size_t>(count);
    }
    return 0;
}

// Makes the file `name` of `folder`, written and flushed. 0 or an errno.
int writeFile(int folder, const std::string& name, const std::string& bytes) {
    Descriptor file(
        ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file) return errno;
    if (const int code = writeAll(file.get(), bytes); code != 0) return code;
    if (::fsync(file.get()) != 0) return errno;
    return ::close(file.release()) == 0 ? 0 : errno;
}

}  // namespace

std::optional<std::string> readWholeFile(const DiskRoot& disk, const std::filesystem::path& path,
                                         std::size_t limit) {
    const Result<Descriptor> file = disk.openTarget(path, O_RDONLY | O_NONBLOCK);
    struct stat status{};
    if (!file.ok() || ::fstat(file->get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    std::string bytes;
    // The file may grow while it is read.
    while (bytes.size() <= limit) {
        constexpr std::size_t piece = std::size_t{64} << 10;
        const std::size_t before = bytes.size();
        bytes.resize(before + piece);
        const ssize_t count = ::read(file->get(), bytes.data() + before, piece);
        if (count < 0 && errno != EINTR) return std::nullopt;
        bytes.resize(before + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count == 0) return bytes;
    }
    return std::nullopt;
}

std::optional<Failure> replaceWholeFile(const DiskRoot& disk, const std::filesystem::path& path,
                                        const std::string& bytes) {
    const Result<Descriptor> folder = disk.makeFolders(path.parent_path());
    if (!folder.ok()) return folder.failure();
    const std::string temporary = temporaryName(path);
    const std::string name = path.filename().native();
    // Never written into: it could be a second name of some other file.
    ::unlinkat(folder->get(), temporary.c_str(), 0);
    int code = writeFile(folder->get(), temporary, bytes);
    if (code == 0 &&
        ::renameat(folder->get(), temporary.c_str(), folder->get(), name.c_str()) != 0) {
        code = errno;
    }
    if (code != 0) {
        ::unlinkat(folder->get(), temporary.c_str(), 0);
        return failureFromErrno(code, path);
    }
    // A folder that may be written into but not read cannot be flushed by itself.
    const Descriptor readable(::openat(folder->get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (readable && ::fsync(readable.get()) != 0) return failureFromErrno(errno, path);
    return std::nullopt;
}

}  // namespace morvane::folder
