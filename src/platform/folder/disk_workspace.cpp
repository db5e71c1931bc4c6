#include "platform/folder/disk_workspace.h"

#include <algorithm>
#include <utility>

#include "model/path_text.h"

namespace morvane::folder {

DiskWorkspace::DiskWorkspace(const HostAnswers& host, EffectLog& effects, Executor& executor)
    : host_(host), effects_(effects), executor_(executor) {
    applicationsReplaced();
}

void DiskWorkspace::applicationsReplaced() {
    applications_.replace(host_.current()->runningApplications, executor_.now());
}

std::vector<RunningApplication> DiskWorkspace::runningApplications() const {
    return applications_.running(executor_.now());
}

void DiskWorkspace::terminate(const RunningApplication& application) {
    if (!applications_.terminate(application.process, executor_.now())) return;
    const std::string path = application.bundlePath ? pathText(*application.bundlePath) : "";
    effects_.add({"terminate", application.bundleIdentifier.value_or(path)});
}

bool DiskWorkspace::isTerminated(const RunningApplication& application) const {
    const auto running = runningApplications();
    return std::none_of(running.begin(), running.end(), [&](const RunningApplication& other) {
        return other.process == application.process;
    });
}

std::optional<std::filesystem::path> DiskWorkspace::applicationURL(
    const std::string& bundleIdentifier) const {
    const auto host = host_.current();
    const auto found = host->registeredApplications.find(bundleIdentifier);
    if (found == host->registeredApplications.end()) return std::nullopt;
    return found->second;
}

void DiskWorkspace::openURL(const std::string& url) {
    effects_.add({"openURL", url});
}

void DiskWorkspace::open(const std::filesystem::path& path) {
    effects_.add({"open", Effect::Texts{pathText(path)}});
}

void DiskWorkspace::reveal(const std::filesystem::path& path) {
    effects_.add({"reveal", Effect::Texts{pathText(path)}});
}

void DiskWorkspace::activate() {
    effects_.add({"activate", true});
}

bool DiskWorkspace::isActive() const {
    return host_.current()->active;
}

void DiskWorkspace::chooseFolders(
    const FolderPanel& panel,
    std::function<void(std::optional<std::vector<std::filesystem::path>>)> chosen) {
    recordPanel(panel);
    executor_.post(
        [chosen = std::move(chosen), folders = host_.current()->openPanel] { chosen(folders); });
}

void DiskWorkspace::recordPanel(const FolderPanel& panel) {
    effects_.add({"openPanel", Effect::Fields{{"prompt", panel.prompt},
                                              {"message", panel.message},
                                              {"directory", pathText(panel.directory)}}});
}

}  // namespace morvane::folder
