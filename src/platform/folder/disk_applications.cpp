#include "platform/folder/disk_applications.h"

#include <algorithm>
#include <utility>

namespace morvane::folder {

void DiskApplications::replace(const std::vector<Host::Application>& listed, Instant now) {
    std::vector<Process> former = std::exchange(processes_, {});
    for (const Host::Application& application : listed) {
        const auto same = std::find_if(former.begin(), former.end(), [&](const Process& process) {
            return !process.hasEnded(now) &&
                   process.application.bundleIdentifier == application.bundleIdentifier &&
                   process.application.bundlePath == application.bundlePath;
        });
        if (same == former.end()) {
            processes_.push_back({application, ++lastNumber_, std::nullopt});
        } else {
            processes_.push_back({application, same->number, same->endsAt});
            former.erase(same);
        }
    }
}

std::vector<RunningApplication> DiskApplications::running(Instant now) const {
    std::vector<RunningApplication> found;
    for (const Process& process : processes_) {
        if (process.hasEnded(now)) continue;
        found.push_back(
            {process.application.bundleIdentifier, process.application.bundlePath, process.number});
    }
    return found;
}

bool DiskApplications::terminate(std::uint64_t number, Instant now) {
    for (Process& process : processes_) {
        if (process.number != number || process.hasEnded(now)) continue;
        if (!process.application.refusesToQuit && !process.endsAt) {
            process.endsAt = now + process.application.quitsAfter;
        }
        return true;
    }
    return false;
}

}  // namespace morvane::folder
