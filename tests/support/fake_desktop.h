#pragma once

#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/system.h"

namespace morvane::fakes {

// A desktop that does nothing and writes down what it was asked to. Set its answers up front; main
// thread but for the registry.
class FakeWorkspace : public Workspace {
public:
    std::vector<RunningApplication> running;
    std::set<std::uint64_t> refusesToQuit;  // by process
    bool active = true;
    std::optional<std::vector<std::filesystem::path>> panelAnswer;
    // Takes the panel's answer to a later turn of the main loop; at once where nothing is set.
    std::function<void(std::function<void()>)> later;

    std::vector<std::uint64_t> asked;  // processes asked to end, in order
    std::vector<std::string> openedURLs;
    std::vector<std::filesystem::path> opened;
    std::vector<std::filesystem::path> revealed;
    std::vector<FolderPanel> panels;
    int activations = 0;

    void registerApplication(const std::string& identifier, std::filesystem::path url);

    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override {
        return running;
    }
    void terminate(const RunningApplication& application) override;
    [[nodiscard]] bool isTerminated(const RunningApplication& application) const override;
    [[nodiscard]] std::optional<std::filesystem::path> applicationURL(
        const std::string& bundleIdentifier) const override;
    void openURL(const std::string& url) override { openedURLs.push_back(url); }
    void open(const std::filesystem::path& path) override { opened.push_back(path); }
    void reveal(const std::filesystem::path& path) override { revealed.push_back(path); }
    void activate() override { ++activations; }
    [[nodiscard]] bool isActive() const override { return active; }
    void chooseFolders(
        const FolderPanel& panel,
        std::function<void(std::optional<std::vector<std::filesystem::path>>)> chosen) override;

private:
    mutable std::mutex mutex_;
    std::map<std::string, std::filesystem::path> registry_;
};

// Set it up before others read it.
class FakeMetadata : public MetadataStore {
public:
    std::map<std::filesystem::path, Item> items;
    std::map<std::filesystem::path, Instant> addedDates;
    std::map<std::filesystem::path, Instant> createdDates;

    [[nodiscard]] std::optional<Item> item(const std::filesystem::path& path) const override;
    [[nodiscard]] std::optional<Instant> addedToFolder(
        const std::filesystem::path& path) const override;
    [[nodiscard]] std::optional<Instant> created(const std::filesystem::path& path) const override;
};

// Answers lie ready until `deliver` hands them over, as a later turn of the main loop would.
class FakeNotifications : public NotificationCenter {
public:
    struct Posted {
        std::string identifier;
        std::string title;
        std::string body;

        bool operator==(const Posted&) const = default;
    };

    PermissionStatus status = PermissionStatus::notDetermined;
    PermissionStatus answersWith = PermissionStatus::granted;
    std::vector<int> requests;  // the options of each
    std::vector<Posted> posted;

    // Hands over the answers that lie ready, and those that come of them.
    void deliver();
    // Called when an answer has come to lie ready.
    std::function<void()> whenReady;

    void readStatus(std::function<void(PermissionStatus)> answer) override;
    void requestAuthorization(int options, std::function<void()> done) override;
    void post(const std::string& identifier, const std::string& title,
              const std::string& body) override {
        posted.push_back({identifier, title, body});
    }

private:
    void ready(std::function<void()> answer);
    std::deque<std::function<void()>> answers_;
};

// Any thread.
class FakeVolume : public Volume {
public:
    void setFigures(std::optional<VolumeFigures> figures) {
        const std::lock_guard lock(mutex_);
        figures_ = std::move(figures);
    }
    void setMountedFrom(std::optional<std::string> device) {
        const std::lock_guard lock(mutex_);
        mountedFrom_ = std::move(device);
    }
    [[nodiscard]] std::optional<VolumeFigures> figures() const override {
        const std::lock_guard lock(mutex_);
        return figures_;
    }
    [[nodiscard]] std::optional<std::string> mountedFrom() const override {
        const std::lock_guard lock(mutex_);
        return mountedFrom_;
    }

private:
    mutable std::mutex mutex_;
    std::optional<VolumeFigures> figures_ =
        VolumeFigures{"Macintosh HD", 500'000'000'000, 100'000'000'000, 120'000'000'000};
    std::optional<std::string> mountedFrom_ = "/dev/disk3s1s1";
};

}  // namespace morvane::fakes
