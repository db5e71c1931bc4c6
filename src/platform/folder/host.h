#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "model/region.h"
#include "platform/system.h"

namespace morvane::folder {

// What host.json answers for. Paths are in the disk's own terms, as the file gives them.
struct Host {
    enum class DiskAccess : std::uint8_t { probe, granted, denied };
    enum class NotificationState : std::uint8_t {
        notDetermined,
        denied,
        authorized,
        provisional,
        ephemeral
    };
    struct Application {
        std::optional<std::string> bundleIdentifier;
        std::optional<std::filesystem::path> bundlePath;
        bool refusesToQuit = false;
        std::chrono::nanoseconds quitsAfter{0};

        bool operator==(const Application&) const = default;
    };
    struct Dates {
        std::optional<Instant> added;
        std::optional<Instant> created;
    };
    struct Updates {
        bool canCheck = true;
        bool checks = false;
        bool downloads = false;

        bool operator==(const Updates&) const = default;
    };

    std::filesystem::path home;
    std::optional<Instant> now;  // a virtual clock starts there
    Region region;
    bool active = true;
    BundleInfo bundle;
    DiskAccess fullDiskAccess = DiskAccess::probe;
    std::vector<std::filesystem::path> unreadable;
    std::vector<std::filesystem::path> immovable;
    std::vector<std::filesystem::path> mounts;
    std::vector<std::filesystem::path> hidden;
    std::vector<std::filesystem::path> packages;
    std::vector<std::filesystem::path> aliases;
    std::map<std::filesystem::path, std::string> displayNames;
    std::vector<Application> runningApplications;
    std::map<std::string, std::filesystem::path> registeredApplications;
    std::map<std::filesystem::path, MetadataStore::Item> metadata;
    std::map<std::filesystem::path, Dates> dates;
    NotificationState notifications = NotificationState::notDetermined;
    NotificationState answersNotifications = NotificationState::authorized;
    // `hasVolume` false: the file system that holds the disk answers. Otherwise `volume`, where
    // nothing makes the query fail.
    bool hasVolume = false;
    std::optional<VolumeFigures> volume;
    std::optional<std::string> mountedFrom = "/dev/disk3s1s1";
    // `hasOpenPanel` false: nobody answers in the user's place. Otherwise `openPanel`, where
    // nothing is a dismissal.
    bool hasOpenPanel = false;
    std::optional<std::vector<std::filesystem::path>> openPanel;
    Updates updates;
    std::string website = "https://example.invalid";
    std::optional<std::string> acknowledgements;
};

// The answers in force, replaced as a whole while others read. Any thread.
class HostAnswers {
public:
    explicit HostAnswers(Host host) : current_(std::make_shared<const Host>(std::move(host))) {}

    [[nodiscard]] std::shared_ptr<const Host> current() const {
        const std::lock_guard lock(mutex_);
        return current_;
    }
    void replace(Host host) {
        auto next = std::make_shared<const Host>(std::move(host));
        const std::lock_guard lock(mutex_);
        current_ = std::move(next);
    }

private:
    mutable std::mutex mutex_;
    std::shared_ptr<const Host> current_;
};

}  // namespace morvane::folder
