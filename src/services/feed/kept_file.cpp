#include "services/feed/kept_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

#include "platform/folder/free_name.h"

namespace morvane {

namespace {

constexpr int mostNumbers = 10'000;

// One rename that fails where anything at all stands at the target.
bool renameToFree(const std::filesystem::path& from, const std::filesystem::path& to) {
#ifdef __APPLE__
    return ::renamex_np(from.c_str(), to.c_str(), RENAME_EXCL) == 0;
#else
    return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
#endif
}

}  // namespace

std::optional<KeptFile> KeptFile::create(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    std::string path = (folder / ".morvane-update-XXXXXX").native();
    const int file = ::mkostemp(path.data(), O_CLOEXEC);  // for this user alone
    if (file < 0) return std::nullopt;
    return KeptFile(file, path);
}

KeptFile::KeptFile(KeptFile&& other) noexcept
    : file_(std::exchange(other.file_, -1)), path_(std::exchange(other.path_, {})) {}

KeptFile::~KeptFile() {
    if (file_ >= 0) ::close(file_);
    if (!path_.empty()) ::unlink(path_.c_str());
}

bool KeptFile::append(QByteArrayView bytes) const {
    while (!bytes.isEmpty()) {
        const ssize_t written =
            ::write(file_, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes = bytes.sliced(written);
    }
    return true;
}

bool KeptFile::flush() const {
    return ::fsync(file_) == 0;
}

std::optional<std::filesystem::path> KeptFile::place(const std::string& name) {
    for (int number = 1; number <= mostNumbers; ++number) {
        std::filesystem::path target =
            path_.parent_path() / (number == 1 ? name : folder::numberedName(name, number));
        if (renameToFree(path_, target)) {
            path_.clear();
            return target;
        }
        if (errno != EEXIST) return std::nullopt;
    }
    return std::nullopt;
}

std::string nameForDownload(const std::string& lastPart) {
    std::string name = lastPart;
    std::erase_if(name, [](char c) { return c == '/' || c == '\x7f' || (c >= 0 && c < ' '); });
    name.erase(0, name.find_first_not_of('.'));
    // Cut before the bytes that would have been too many, the extension with them: an odd name.
    if (name.size() > folder::longestName) name = "Morvane update";
    return name.empty() ? "Morvane update" : name;
}

}  // namespace morvane
