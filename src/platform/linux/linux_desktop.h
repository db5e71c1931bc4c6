#pragma once

#include <functional>
#include <string>

#include "platform/folder/desktop.h"
#include "platform/linux/file_manager.h"
#include "platform/linux/notifications.h"

namespace morvane::linuxdesktop {

// The desktop a Linux user sits at, for a disk in a folder. Whatever of it is missing, the program
// goes on: what nobody can show is not shown.
class LinuxDesktop final : public folder::Desktop {
public:
    using ShowLink = std::function<void(const std::string& url)>;

    // `bus` is the session's; it need not be connected. `showLink` is given the links that lead
    // somewhere on a Mac only, such as into its System Settings.
    LinuxDesktop(const QDBusConnection& bus, ShowLink showLink);

    void openURL(const std::string& url) override;
    void open(const std::filesystem::path& place) override;
    void reveal(const std::filesystem::path& place) override;
    void activate() override;
    void readNotificationStatus(std::function<void(PermissionStatus)> answer) override;
    void requestNotifications(std::function<void()> done) override;
    void postNotification(const std::string& identifier, const std::string& title,
                          const std::string& body) override;

private:
    Notifications notifications_;
    FileManager fileManager_;
    ShowLink showLink_;
};

}  // namespace morvane::linuxdesktop
