#include "platform/folder/disk_notifications.h"

#include <utility>

namespace morvane::folder {

namespace {

PermissionStatus permission(Host::NotificationState state) {
    switch (state) {
        case Host::NotificationState::notDetermined:
            return PermissionStatus::notDetermined;
        case Host::NotificationState::denied:
            return PermissionStatus::denied;
        // Some notifications reach the user with each of these.
        case Host::NotificationState::authorized:
        case Host::NotificationState::provisional:
        case Host::NotificationState::ephemeral:
            return PermissionStatus::granted;
    }
    return PermissionStatus::notDetermined;
}

}  // namespace

void DiskNotifications::readStatus(std::function<void(PermissionStatus)> answer) {
    executor_.post(
        [this, answer = std::move(answer)] { answer(permission(host_.current()->notifications)); });
}

void DiskNotifications::requestAuthorization(int options, std::function<void()> done) {
    effects_.add({"requestNotifications", options});
    executor_.post([this, done = std::move(done)] {
        Host host = *host_.current();
        if (host.notifications == Host::NotificationState::notDetermined) {
            host.notifications = host.answersNotifications;
            host_.replace(std::move(host));
        }
        done();
    });
}

void DiskNotifications::post(const std::string& identifier, const std::string& title,
                             const std::string& body) {
    effects_.add({"notification",
                  Effect::Fields{{"identifier", identifier}, {"title", title}, {"body", body}}});
}

}  // namespace morvane::folder
