#pragma once

#include <vector>

#include "platform/file_system.h"
#include "platform/folder/walk_lane.h"
#include "platform/folder/walk_node.h"

namespace morvane::folder {

// A walk that tells each folder's visit what the folder holds.
class VisitLane final : public WalkLane {
public:
    // `askForMounts`: where it is not known which folders have a mount, each is asked.
    VisitLane(WalkCrew& crew, const StopToken& token, const WalkOptions& options,
              bool askForMounts);

private:
    void look(WalkFrame& frame, RawListing& listing) override;
    std::optional<WalkFrame> enter(WalkFrame& parent, const NameList::Name& name) override;
    void leave(WalkFrame& frame) override;

    [[nodiscard]] WalkedEntry walked(const WalkFrame& frame, const RawEntry& entry) const;
    void addAttributes(const WalkFrame& frame, WalkedEntry& entry) const;

    WalkOptions options_;
    unsigned mask_;
    bool askForMounts_;
    std::vector<WalkedEntry> batch_;
};

}  // namespace morvane::folder
