#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/folder/disk_root.h"
#include "platform/folder/host.h"

namespace morvane::folder {

// What the host's answers forbid a removal, by paths with no link in them ("canonical"). The places
// the answers name are looked up once, when this is made. Any thread.
class HostLimits {
public:
    // `trash`: the canonical path of the Trash, which is never unreadable.
    HostLimits(const DiskRoot& disk, const Host& host, std::string trash);

    // Whether the item itself can be neither moved nor deleted.
    [[nodiscard]] bool isImmovable(const std::string& path) const;
    // Whether the folder refuses to be opened.
    [[nodiscard]] bool isUnreadable(const std::string& path) const;
    // Whether either may be so for anything at or below `path`.
    [[nodiscard]] bool limitsBelow(const std::string& path) const;
    // Whether a volume is mounted at or below `path`.
    [[nodiscard]] bool holdsMount(const std::string& path) const;
    // Whether both lie on one volume, so that a rename may go from one to the other.
    [[nodiscard]] bool onOneVolume(const std::string& one, const std::string& other) const;

private:
    [[nodiscard]] std::string volumeOf(const std::string& path) const;

    std::set<std::string> immovable_;
    std::vector<std::string> unreadable_;
    std::vector<std::string> mounts_;
    std::string trash_;
};

// Whether `path` is `folder` or lies below it, both canonical.
[[nodiscard]] bool liesIn(std::string_view path, std::string_view folder);

}  // namespace morvane::folder
