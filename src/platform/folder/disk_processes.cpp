#include "platform/folder/disk_processes.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <sys/stat.h>

#include "model/path_text.h"
#include "platform/folder/tool_environment.h"
#include "platform/folder/tool_run.h"
#include "platform/folder/tool_start.h"
#include "tasks/pool.h"

namespace morvane::folder {

namespace {

// Where the file that `executable` leads to lies on this machine, or nothing when it is no file.
std::optional<std::filesystem::path> executableFile(const DiskRoot& root,
                                                    const std::filesystem::path& executable) {
    if (!executable.is_absolute()) return std::nullopt;
    const Result<Place> place = root.locateTarget(executable);
    if (!place.ok()) return std::nullopt;
    struct stat status{};
    if (::fstatat(place->folder.get(), place->name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return root.onThisMachine(place->canonicalPath());
}

bool holdsZero(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        if (text.find('\0') != std::string::npos) return true;
    }
    return false;
}

Effect runEffect(const std::filesystem::path& executable,
                 const std::vector<std::string>& arguments) {
    Effect::Texts texts{pathText(executable)};
    for (const std::string& argument : arguments) {
        texts.push_back(isUTF8(argument) ? argument : pathText(argument));
    }
    return {"run", std::move(texts)};
}

}  // namespace

DiskProcesses::DiskProcesses(const DiskRoot& root, std::filesystem::path disk, EffectLog& effects)
    : root_(root), disk_(std::move(disk)), effects_(effects), environment_(ownEnvironment()) {
    // A program that was started with its children ignored would never learn how a tool ended.
    struct sigaction action{};
    if (::sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) {
        action.sa_handler = SIG_DFL;
        ::sigaction(SIGCHLD, &action, nullptr);
    }
}

std::optional<ToolResult> DiskProcesses::run(const std::filesystem::path& executable,
                                             const std::vector<std::string>& arguments,
                                             std::optional<std::chrono::milliseconds> limit,
                                             const StopToken& token) const {
    const Pool::Blocking blocking;
    const StopToken closing = closing_.get_token();
    const Descriptor wakeUp(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!wakeUp || holdsZero(arguments)) return std::nullopt;
    const auto wake = [number = wakeUp.get()] { ::eventfd_write(number, 1); };
    const StopCallback onStop(token, wake);
    const StopCallback onClosing(closing, wake);
    if (token.stop_requested() || closing.stop_requested()) return std::nullopt;

    const auto file = executableFile(root_, executable);
    if (!file) return std::nullopt;
    ToolStart start{.file = *file,
                    .arguments = {executable.native()},
                    .environment = toolEnvironment(environment_, root_, disk_, executable),
                    .workingFolder = root_.descriptor()};
    start.arguments.insert(start.arguments.end(), arguments.begin(), arguments.end());
    std::optional<StartedTool> tool = startTool(start);
    if (!tool) return std::nullopt;
    effects_.add(runEffect(executable, arguments));

    const ToolRun::Reasons reasons{
        .limit = limit, .unwanted = token, .closing = closing, .wakeUp = wakeUp.get()};
    return ToolRun(std::move(*tool), reasons).finish();
}

unsigned DiskProcesses::userID() const {
    return ::getuid();
}

void DiskProcesses::endAll() {
    closing_.request_stop();
}

}  // namespace morvane::folder
