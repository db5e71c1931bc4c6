#pragma once

#include "platform/file_system.h"
#include "platform/folder/walk_lane.h"

namespace morvane::folder {

// A walk that adds up the regular files and keeps nothing of a folder once it is through.
class SizeLane final : public WalkLane {
public:
    SizeLane(WalkCrew& crew, const StopToken& token, bool withDates);

    [[nodiscard]] const TreeSize& size() const { return size_; }

private:
    void look(WalkFrame& frame, RawListing& listing) override;
    std::optional<WalkFrame> enter(WalkFrame& parent, const NameList::Name& name) override;
    void leave(WalkFrame& frame) override;
    void ask(WalkFrame& frame, const RawEntry& entry);

    unsigned mask_;
    bool withDates_;
    TreeSize size_;
};

}  // namespace morvane::folder
