#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/system.h"

namespace morvane::folder {

// The desktop of the machine that a disk's folder lies on, where there is one for what the disk
// itself cannot answer. Paths are places on this machine with no link in them but, for `reveal`, at
// the end; the item was there a moment ago. Main thread; nothing here waits for the desktop, and
// answers come at a later turn.
class Desktop {
public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    virtual void openURL(const std::string& url) = 0;
    virtual void open(const std::filesystem::path& place) = 0;
    virtual void reveal(const std::filesystem::path& place) = 0;
    virtual void activate() = 0;

    virtual void readNotificationStatus(std::function<void(PermissionStatus)> answer) = 0;
    virtual void requestNotifications(std::function<void()> done) = 0;
    virtual void postNotification(const std::string& identifier, const std::string& title,
                                  const std::string& body) = 0;
};

// The program's own windows, where it has some. Main thread.
class OwnWindows {
public:
    using Chosen = std::function<void(std::optional<std::vector<std::filesystem::path>>)>;

    OwnWindows() = default;
    OwnWindows(const OwnWindows&) = delete;
    OwnWindows& operator=(const OwnWindows&) = delete;
    virtual ~OwnWindows() = default;

    // Whether one of them is in front.
    [[nodiscard]] virtual bool isActive() const = 0;
    // As Workspace has it: paths are in the disk's own terms, the answer comes at a later turn.
    virtual void chooseFolders(const Workspace::FolderPanel& panel, Chosen chosen) = 0;
};

// What a disk in a folder is shown on. Without a desktop, what is asked of it is only an effect;
// without windows the host answers for them.
struct Surroundings {
    Desktop* desktop = nullptr;
    OwnWindows* windows = nullptr;
};

}  // namespace morvane::folder
