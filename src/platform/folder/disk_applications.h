#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/folder/host.h"

namespace morvane::folder {

// The processes that the host's answers speak of. Each has a number of its own that no other one
// gets, from the moment it is first listed until it has ended. Main thread.
class DiskApplications {
public:
    // What is listed runs from `now` on: one that does so already goes on as the same process, on
    // its way out where it was asked to end; one that has ended or is new runs as another. What is
    // left out has ended.
    void replace(const std::vector<Host::Application>& listed, Instant now);

    // Those that have not ended at `now`.
    [[nodiscard]] std::vector<RunningApplication> running(Instant now) const;
    // Asks a process to end, which it does in its own time or not at all; asked again, nothing
    // changes. False when there is no such process at `now`.
    bool terminate(std::uint64_t process, Instant now);

private:
    struct Process {
        Host::Application application;
        std::uint64_t number = 0;
        std::optional<Instant> endsAt;

        [[nodiscard]] bool hasEnded(Instant now) const { return endsAt && *endsAt <= now; }
    };
    std::vector<Process> processes_;
    std::uint64_t lastNumber_ = 0;
};

}  // namespace morvane::folder
