#include "services/updater.h"

#include <utility>

namespace morvane {

Updater::Updater(UpdateService& service) : service_(service) {
    service_.start();
    checks_ = service_.automaticallyChecks();
    downloads_ = service_.automaticallyDownloads();
    canCheck_ = service_.canCheckForUpdates();
    subscription_ = service_.observeCanCheck([this] { takeCanCheck(); });
}

void Updater::setAutomaticallyChecksForUpdates(bool checks) {
    const bool differs = std::exchange(checks_, checks) != checks;
    service_.setAutomaticallyChecks(checks);
    if (differs) changes_.tell();
}

void Updater::setAutomaticallyDownloadsUpdates(bool downloads) {
    const bool differs = std::exchange(downloads_, downloads) != downloads;
    service_.setAutomaticallyDownloads(downloads);
    if (differs) changes_.tell();
}

void Updater::checkForUpdates() {
    service_.checkForUpdates();
}

Subscription Updater::observe(std::function<void()> changed) {
    return changes_.observe(std::move(changed));
}

void Updater::takeCanCheck() {
    const bool canCheck = service_.canCheckForUpdates();
    if (std::exchange(canCheck_, canCheck) != canCheck) changes_.tell();
}

}  // namespace morvane
