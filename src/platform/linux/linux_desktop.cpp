#include "platform/linux/linux_desktop.h"

#include <array>
#include <string_view>
#include <utility>

#include "platform/linux/application_windows.h"
#include "platform/linux/file_url.h"
#include "platform/linux/opener.h"

namespace morvane::linuxdesktop {

namespace {

// What a browser or a mail program of any desktop understands.
bool isOfAnyDesktop(std::string_view url) {
    constexpr std::array<std::string_view, 3> schemes{"https://", "http://", "mailto:"};
    for (const std::string_view scheme : schemes) {
        if (url.starts_with(scheme)) return true;
    }
    return false;
}

}  // namespace

LinuxDesktop::LinuxDesktop(const QDBusConnection& bus, ShowLink showLink)
    : notifications_(bus), fileManager_(bus), showLink_(std::move(showLink)) {}

void LinuxDesktop::openURL(const std::string& url) {
    if (isOfAnyDesktop(url)) {
        openByDesktop(url);
    } else if (showLink_) {
        showLink_(url);
    }
}

void LinuxDesktop::open(const std::filesystem::path& place) {
    openByDesktop(fileURL(place));
}

void LinuxDesktop::reveal(const std::filesystem::path& place) {
    fileManager_.reveal(place);
}

void LinuxDesktop::activate() {
    bringWindowsToFront();
}

void LinuxDesktop::readNotificationStatus(std::function<void(PermissionStatus)> answer) {
    notifications_.readStatus(std::move(answer));
}

void LinuxDesktop::requestNotifications(std::function<void()> done) {
    // Nobody is asked here: that a server answers is the permission, and the next read tells it.
    notifications_.readStatus([done = std::move(done)](PermissionStatus) { done(); });
}

void LinuxDesktop::postNotification(const std::string& identifier, const std::string& title,
                                    const std::string& body) {
    notifications_.post(identifier, title, body);
}

}  // namespace morvane::linuxdesktop
