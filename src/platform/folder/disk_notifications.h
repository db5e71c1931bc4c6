#pragma once

#include "platform/folder/effect_log.h"
#include "platform/folder/host.h"
#include "platform/system.h"
#include "tasks/executor.h"

namespace morvane::folder {

// The notification centre as the host's answers have it. What the user says when asked becomes the
// status in those answers. All three outlive this object.
class DiskNotifications final : public NotificationCenter {
public:
    DiskNotifications(HostAnswers& host, EffectLog& effects, Executor& executor)
        : host_(host), effects_(effects), executor_(executor) {}

    void readStatus(std::function<void(PermissionStatus)> answer) override;
    void requestAuthorization(int options, std::function<void()> done) override;
    void post(const std::string& identifier, const std::string& title,
              const std::string& body) override;

private:
    HostAnswers& host_;
    EffectLog& effects_;
    Executor& executor_;
};

}  // namespace morvane::folder
