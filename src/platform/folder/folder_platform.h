#pragma once

#include <filesystem>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/folder/desktop.h"
#include "platform/folder/disk_file_system.h"
#include "platform/folder/disk_metadata.h"
#include "platform/folder/disk_processes.h"
#include "platform/folder/disk_remover.h"
#include "platform/folder/disk_resources.h"
#include "platform/folder/disk_updates.h"
#include "platform/folder/disk_volume.h"
#include "platform/folder/disk_workspace.h"
#include "platform/folder/file_defaults.h"
#include "platform/platform.h"

namespace morvane::folder {

// A Mac disk that lies in a folder, with all that answers for it: `DISK/root` for its files and
// tools, `DISK/host.json` for the rest. Main thread. Outlives the tasks that use it.
class FolderPlatform {
public:
    // Opens the disk in `disk`, a folder of this machine, or gives one line that tells what is
    // wrong. Nothing on the disk is touched.
    [[nodiscard]] static std::variant<std::unique_ptr<FolderPlatform>, std::string> open(
        const std::filesystem::path& disk);

    FolderPlatform(const FolderPlatform&) = delete;
    FolderPlatform& operator=(const FolderPlatform&) = delete;
    // Ends the tools that still run, and waits until what was kept has reached the disk.
    ~FolderPlatform();

    // What the host answers at present; it says at which moment a virtual clock starts.
    [[nodiscard]] std::shared_ptr<const Host> host() const { return host_.current(); }

    // Connects the disk with the main loop and with what it is shown on, which outlive it. Before
    // any of the following; once. With a desktop, which sees for itself what it is asked, the log
    // of effects keeps none.
    void start(Executor& executor, Surroundings surroundings = {});

    [[nodiscard]] Platform platform();
    [[nodiscard]] Remover& remover() { return remover_; }
    [[nodiscard]] UpdateService& updates() { return *updates_; }
    [[nodiscard]] EffectLog& effects() { return effects_; }
    [[nodiscard]] DiskProcesses& processes() { return processes_; }

    [[nodiscard]] Defaults& defaults() { return *defaults_.back(); }
    // Reads the defaults anew, as a restart would. Who still holds the former ones writes nothing
    // more by them, but may go on reading.
    void reopenDefaults();

    // Replaces these keys of the host's answers, or gives one line that names what is wrong with
    // them and changes nothing.
    [[nodiscard]] std::optional<std::string> replaceHost(const nlohmann::json& keys);

private:
    // Opens nothing where the host answers in place of the probe.
    class Files final : public DiskFileSystem {
    public:
        Files(const DiskRoot& root, const HostAnswers& host)
            : DiskFileSystem(root, host), host_(host) {}
        [[nodiscard]] Probe probe(const std::filesystem::path& path) const override;

    private:
        const HostAnswers& host_;
    };

    FolderPlatform(DiskRoot root, const std::filesystem::path& disk, Host host);
    [[nodiscard]] std::unique_ptr<FileDefaults> openDefaults() const;

    DiskRoot root_;
    HostAnswers host_;
    EffectLog effects_;
    Files files_;
    DiskProcesses processes_;
    DiskRemover remover_;
    DiskMetadata metadata_;
    DiskVolume volume_;
    DiskResources resources_;
    std::vector<std::unique_ptr<FileDefaults>> defaults_;  // the last ones count
    std::unique_ptr<DiskWorkspace> workspace_;
    std::unique_ptr<NotificationCenter> notifications_;
    std::optional<DiskUpdates> updates_;
};

}  // namespace morvane::folder
