#include "platform/folder/disk_updates.h"

#include <utility>

namespace morvane::folder {

DiskUpdates::DiskUpdates(const HostAnswers& host, EffectLog& effects)
    : host_(host),
      effects_(effects),
      canCheck_(host.current()->updates.canCheck),
      checks_(host.current()->updates.checks),
      downloads_(host.current()->updates.downloads) {}

void DiskUpdates::canCheckReplaced() {
    const bool canCheck = host_.current()->updates.canCheck;
    if (std::exchange(canCheck_, canCheck) != canCheck) changes_.tell();
}

void DiskUpdates::checkForUpdates() {
    if (canCheck_) effects_.add({"checkForUpdates", true});
}

Subscription DiskUpdates::observeCanCheck(std::function<void()> changed) {
    return changes_.observe(std::move(changed));
}

}  // namespace morvane::folder
