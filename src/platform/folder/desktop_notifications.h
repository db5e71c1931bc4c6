#pragma once

#include <utility>

#include "platform/folder/desktop.h"
#include "platform/system.h"

namespace morvane::folder {

// The notification centre where a desktop has one. The desktop outlives this object.
class DesktopNotifications final : public NotificationCenter {
public:
    explicit DesktopNotifications(Desktop& desktop) : desktop_(desktop) {}

    void readStatus(std::function<void(PermissionStatus)> answer) override {
        desktop_.readNotificationStatus(std::move(answer));
    }
    void requestAuthorization(int, std::function<void()> done) override {
        desktop_.requestNotifications(std::move(done));
    }
    void post(const std::string& identifier, const std::string& title,
              const std::string& body) override {
        desktop_.postNotification(identifier, title, body);
    }

private:
    Desktop& desktop_;
};

}  // namespace morvane::folder
