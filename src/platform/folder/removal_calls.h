#pragma once

#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

namespace morvane::folder {

// The system calls by which a removal looks and acts. Each returns what the system's call does: -1
// with errno set where it failed. A test puts its own in place, to record what was asked for and to
// let one fail. Any thread.
class RemovalCalls {
public:
    RemovalCalls() = default;
    RemovalCalls(const RemovalCalls&) = delete;
    RemovalCalls& operator=(const RemovalCalls&) = delete;
    virtual ~RemovalCalls() = default;

    // The calls of the system itself; they hold no state.
    static RemovalCalls& real();

    // O_CLOEXEC is added to `flags`.
    virtual int open(int folder, const std::string& name, int flags);
    // An empty `name` asks about `folder` itself. A link at `name` is described, not followed, and
    // nothing is mounted by looking.
    virtual int look(int folder, const std::string& name, struct statx& facts);
    // The next entries of an open folder as getdents64 writes them; 0 at the end.
    virtual ssize_t list(int folder, void* buffer, std::size_t size);
    virtual int makeFolder(int folder, const std::string& name, mode_t mode);
    // Fails with EEXIST when anything at all stands at the target. There is no other way to rename.
    virtual int rename(int fromFolder, const std::string& from, int toFolder,
                       const std::string& to);
    // Anything but a folder.
    virtual int unlink(int folder, const std::string& name);
    // An empty folder.
    virtual int removeFolder(int folder, const std::string& name);
    // Where an open item lies on this machine, as readlink tells it.
    virtual ssize_t realPath(int item, char* buffer, std::size_t size);
    // Opens the list of what is mounted.
    virtual int openMountTable();
};

}  // namespace morvane::folder
