#pragma once

#include "platform/folder/disk_applications.h"
#include "platform/folder/effect_log.h"
#include "platform/folder/host.h"
#include "platform/system.h"
#include "tasks/executor.h"

namespace morvane::folder {

// The desktop as the host's answers have it: what it is asked to do is an effect, and nothing
// happens to this machine's own desktop unless who derives from it does so. All three outlive this
// object.
class DiskWorkspace : public Workspace {
public:
    DiskWorkspace(const HostAnswers& host, EffectLog& effects, Executor& executor);

    // To be called when the host's list of running applications was given anew.
    void applicationsReplaced();

    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;
    void terminate(const RunningApplication& application) override;
    [[nodiscard]] bool isTerminated(const RunningApplication& application) const override;
    [[nodiscard]] std::optional<std::filesystem::path> applicationURL(
        const std::string& bundleIdentifier) const override;
    void openURL(const std::string& url) override;
    void open(const std::filesystem::path& path) override;
    void reveal(const std::filesystem::path& path) override;
    void activate() override;
    [[nodiscard]] bool isActive() const override;
    void chooseFolders(
        const FolderPanel& panel,
        std::function<void(std::optional<std::vector<std::filesystem::path>>)> chosen) override;

protected:
    [[nodiscard]] const HostAnswers& host() const { return host_; }
    void recordPanel(const FolderPanel& panel);

private:
    const HostAnswers& host_;
    EffectLog& effects_;
    Executor& executor_;
    DiskApplications applications_;
};

}  // namespace morvane::folder
