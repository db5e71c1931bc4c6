#pragma once

#include <optional>

#include "platform/file_system.h"
#include "platform/folder/host.h"

namespace morvane::folder {

// What the host's answers say in place of opening an item, or nothing where it is to be opened.
[[nodiscard]] inline std::optional<Probe> answeredProbe(const Host& host) {
    switch (host.fullDiskAccess) {
        case Host::DiskAccess::granted:
            return Probe::opened;
        case Host::DiskAccess::denied:
            return Probe::refused;
        case Host::DiskAccess::probe:
            break;
    }
    return std::nullopt;
}

}  // namespace morvane::folder
