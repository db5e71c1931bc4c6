#pragma once

#include "platform/folder/desktop.h"
#include "platform/folder/disk_root.h"
#include "platform/folder/disk_workspace.h"

namespace morvane::folder {

// The disk's workspace with what it is shown on: the desktop is given the item's place on this
// machine, the windows choose folders unless the host does so in the user's place. Applications
// stay with the disk. An item that is not there any more is neither opened nor revealed.
class DesktopWorkspace final : public DiskWorkspace {
public:
    DesktopWorkspace(const HostAnswers& host, const DiskRoot& root, EffectLog& effects,
                     Executor& executor, Surroundings surroundings)
        : DiskWorkspace(host, effects, executor), root_(root), surroundings_(surroundings) {}

    void openURL(const std::string& url) override;
    void open(const std::filesystem::path& path) override;
    void reveal(const std::filesystem::path& path) override;
    void activate() override;
    [[nodiscard]] bool isActive() const override;
    void chooseFolders(
        const FolderPanel& panel,
        std::function<void(std::optional<std::vector<std::filesystem::path>>)> chosen) override;

private:
    const DiskRoot& root_;
    Surroundings surroundings_;
};

}  // namespace morvane::folder
