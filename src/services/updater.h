#pragma once

#include <functional>

#include "platform/updates.h"

namespace morvane {

// What the screens see of the update service: three values to bind to, and the press of the button.
// One for the life of the program. Main thread.
class Updater {
public:
    // Starts the service, which outlives this.
    explicit Updater(UpdateService& service);
    Updater(const Updater&) = delete;
    Updater& operator=(const Updater&) = delete;

    // Follows the service. While false, whatever checks for updates is disabled.
    [[nodiscard]] bool canCheckForUpdates() const { return canCheck_; }
    // Read from the service once; from then on only the two functions below change them.
    [[nodiscard]] bool automaticallyChecksForUpdates() const { return checks_; }
    [[nodiscard]] bool automaticallyDownloadsUpdates() const { return downloads_; }

    // Each stores the value, hands it to the service, equal or not, and tells the observers where
    // it differs. Neither touches the other.
    void setAutomaticallyChecksForUpdates(bool checks);
    void setAutomaticallyDownloadsUpdates(bool downloads);

    void checkForUpdates();

    // `changed` runs after any of the three values has changed, until the subscription is dropped.
    [[nodiscard]] Subscription observe(std::function<void()> changed);

private:
    void takeCanCheck();

    UpdateService& service_;
    bool canCheck_ = false;
    bool checks_ = false;
    bool downloads_ = false;
    Changes changes_;
    Subscription subscription_;  // dropped first
};

}  // namespace morvane
