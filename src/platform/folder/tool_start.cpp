#include "platform/folder/tool_start.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace morvane::folder {

namespace {

class Actions {
public:
    Actions() { ::posix_spawn_file_actions_init(&actions_); }
    ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }
    Actions(const Actions&) = delete;
    Actions& operator=(const Actions&) = delete;
    [[nodiscard]] posix_spawn_file_actions_t* get() { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

class Attributes {
public:
    Attributes() { ::posix_spawnattr_init(&attributes_); }
    ~Attributes() { ::posix_spawnattr_destroy(&attributes_); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    [[nodiscard]] posix_spawnattr_t* get() { return &attributes_; }

private:
    posix_spawnattr_t attributes_{};
};

std::vector<char*> pointers(const std::vector<std::string>& texts) {
    std::vector<char*> list;
    list.reserve(texts.size() + 1);
    // The tool gets a copy; the interface is older than const.
    for (const std::string& text : texts) list.push_back(const_cast<char*>(text.c_str()));
    list.push_back(nullptr);
    return list;
}

// Moves a descriptor above the standard ones, where the steps in the new process leave it alone.
bool moveAboveStandard(Descriptor& descriptor) {
    if (descriptor.get() > STDERR_FILENO) return true;
    descriptor = Descriptor(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    return static_cast<bool>(descriptor);
}

bool openPipe(Descriptor& reading, Descriptor& writing) {
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) return false;
    reading = Descriptor(ends[0]);
    writing = Descriptor(ends[1]);
    return moveAboveStandard(reading) && moveAboveStandard(writing) &&
           ::fcntl(reading.get(), F_SETFL, O_NONBLOCK) == 0;
}

bool setUp(posix_spawn_file_actions_t* actions, int workingFolder, int output) {
    return ::posix_spawn_file_actions_addfchdir_np(actions, workingFolder) == 0 &&
           ::posix_spawn_file_actions_addopen(actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0) ==
               0 &&
           ::posix_spawn_file_actions_adddup2(actions, output, STDOUT_FILENO) == 0 &&
           ::posix_spawn_file_actions_addopen(actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0) ==
               0 &&
           ::posix_spawn_file_actions_addclosefrom_np(actions, STDERR_FILENO + 1) == 0;
}

bool setUp(posix_spawnattr_t* attributes) {
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    return ::posix_spawnattr_setpgroup(attributes, 0) == 0 &&
           ::posix_spawnattr_setsigmask(attributes, &none) == 0 &&
           ::posix_spawnattr_setsigdefault(attributes, &all) == 0 &&
           ::posix_spawnattr_setflags(attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK |
                                                      POSIX_SPAWN_SETSIGDEF) == 0;
}

}  // namespace

std::optional<StartedTool> startTool(const ToolStart& start) {
    StartedTool tool;
    Descriptor writing;
    if (!openPipe(tool.output, writing)) return std::nullopt;
    Actions actions;
    Attributes attributes;
    if (!setUp(actions.get(), start.workingFolder, writing.get()) || !setUp(attributes.get())) {
        return std::nullopt;
    }
    const std::vector<char*> arguments = pointers(start.arguments);
    const std::vector<char*> environment = pointers(start.environment);
    if (::posix_spawn(&tool.process, start.file.c_str(), actions.get(), attributes.get(),
                      arguments.data(), environment.data()) != 0) {
        return std::nullopt;
    }
    // By its number: not every C library that has the function declares it for C++.
    tool.ending = Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, tool.process, 0)));
    return tool;
}

}  // namespace morvane::folder
