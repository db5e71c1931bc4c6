#pragma once

#include <functional>

#include "platform/changes.h"

namespace morvane {

// What brings new versions of the program: it looks for them by its own schedule and shows what it
// finds in its own way. Main thread.
class UpdateService {
public:
    UpdateService() = default;
    UpdateService(const UpdateService&) = delete;
    UpdateService& operator=(const UpdateService&) = delete;
    virtual ~UpdateService() = default;

    // From here on the schedule counts. Once, before anything else is asked of it.
    virtual void start() = 0;

    // Looks for a new version now and tells the user whatever comes of it. Nothing happens while a
    // check cannot start.
    virtual void checkForUpdates() = 0;
    // Whether a check can start: there is somewhere to look, and none is under way.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    // `changed` runs on the main thread whenever that has changed, until the subscription is
    // dropped.
    [[nodiscard]] virtual Subscription observeCanCheck(std::function<void()> changed) = 0;

    // Two switches that outlive the program, both off at first. Downloading by itself has a meaning
    // only while checking by itself is on, and keeps its value while that is off.
    [[nodiscard]] virtual bool automaticallyChecks() const = 0;
    virtual void setAutomaticallyChecks(bool checks) = 0;
    [[nodiscard]] virtual bool automaticallyDownloads() const = 0;
    virtual void setAutomaticallyDownloads(bool downloads) = 0;
};

}  // namespace morvane
