#pragma once

#include "platform/folder/disk_root.h"
#include "platform/folder/host.h"
#include "platform/system.h"

namespace morvane::folder {

// The startup volume as the host's answers have it; where they say nothing, the file system that
// holds the disk, which has neither a name nor room for important use. Both outlive this object.
class DiskVolume final : public Volume {
public:
    DiskVolume(const HostAnswers& host, const DiskRoot& root) : host_(host), root_(root) {}

    [[nodiscard]] std::optional<VolumeFigures> figures() const override;
    [[nodiscard]] std::optional<std::string> mountedFrom() const override;

private:
    const HostAnswers& host_;
    const DiskRoot& root_;
};

}  // namespace morvane::folder
