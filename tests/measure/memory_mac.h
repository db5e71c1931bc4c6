#pragma once

#include <map>
#include <mutex>
#include <utility>
#include <vector>

#include "measure/memory_disk.h"
#include "platform/platform.h"

namespace morvane::test {

// A metadata store that knows what a test puts into it, and remembers which items it was asked for.
class MemoryMetadata final : public MetadataStore {
public:
    std::map<std::filesystem::path, Item> items;
    std::map<std::filesystem::path, Instant> addedDates;
    std::map<std::filesystem::path, Instant> createdDates;
    mutable std::vector<std::filesystem::path> asked;

    [[nodiscard]] std::optional<Item> item(const std::filesystem::path& path) const override {
        const std::lock_guard lock(mutex_);
        asked.push_back(path);
        return find(items, path);
    }
    [[nodiscard]] std::optional<Instant> addedToFolder(
        const std::filesystem::path& path) const override {
        return find(addedDates, path);
    }
    [[nodiscard]] std::optional<Instant> created(const std::filesystem::path& path) const override {
        return find(createdDates, path);
    }

private:
    template <class Value>
    static std::optional<Value> find(const std::map<std::filesystem::path, Value>& values,
                                     const std::filesystem::path& path) {
        const auto found = values.find(path);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    mutable std::mutex mutex_;
};

// A system on which nothing but its disk and its metadata store says anything.
class SilentProcesses final : public Processes {
public:
    [[nodiscard]] std::optional<ToolResult> run(const std::filesystem::path&,
                                                const std::vector<std::string>&,
                                                std::optional<std::chrono::milliseconds>,
                                                const StopToken&) const override {
        return std::nullopt;
    }
    [[nodiscard]] unsigned userID() const override { return 501; }
};

class SilentWorkspace final : public Workspace {
public:
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override {
        return {};
    }
    void terminate(const RunningApplication&) override {}
    [[nodiscard]] bool isTerminated(const RunningApplication&) const override { return true; }
    [[nodiscard]] std::optional<std::filesystem::path> applicationURL(
        const std::string&) const override {
        return std::nullopt;
    }
    void openURL(const std::string&) override {}
    void open(const std::filesystem::path&) override {}
    void reveal(const std::filesystem::path&) override {}
    void activate() override {}
    [[nodiscard]] bool isActive() const override { return true; }
    void chooseFolders(
        const FolderPanel&,
        std::function<void(std::optional<std::vector<std::filesystem::path>>)>) override {}
};

class SilentNotifications final : public NotificationCenter {
public:
    void readStatus(std::function<void(PermissionStatus)>) override {}
    void requestAuthorization(int, std::function<void()>) override {}
    void post(const std::string&, const std::string&, const std::string&) override {}
};

class SilentVolume final : public Volume {
public:
    [[nodiscard]] std::optional<VolumeFigures> figures() const override { return std::nullopt; }
    [[nodiscard]] std::optional<std::string> mountedFrom() const override { return std::nullopt; }
};

struct MemoryMac {
    explicit MemoryMac(std::vector<Item> items = {}) : disk(std::move(items)) {}

    MemoryDisk disk;
    MemoryMetadata metadata;

    [[nodiscard]] const Platform& platform() const { return platform_; }
    // The same system, reading another disk.
    [[nodiscard]] Platform platformOver(const FileSystem& files) {
        return {.files = files,
                .processes = processes_,
                .workspace = workspace_,
                .metadata = metadata,
                .notifications = notifications_,
                .volume = volume_,
                .bundle = {},
                .region = {},
                .home = "/Users/sam"};
    }

private:
    SilentProcesses processes_;
    SilentWorkspace workspace_;
    SilentNotifications notifications_;
    SilentVolume volume_;
    Platform platform_ = platformOver(disk);
};

}  // namespace morvane::test
