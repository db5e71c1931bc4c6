#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/folder/raw_listing.h"
#include "platform/folder/walk_crew.h"
#include "platform/folder/walk_frame.h"
#include "tasks/stop_token.h"

namespace morvane::folder {

// One thread's way through a tree: down into each subfolder before more of a folder is read, so
// that a folder of any length is never held in memory. There is no recursion and no limit of depth;
// at most about two dozen folders are open at a time. Those further up are closed and opened again
// from below through "..", and what is left of one is given up when that leads to another folder.
// What a walk makes of the folders is decided by the class derived from it. One thread.
class WalkLane {
public:
    WalkLane(WalkCrew& crew, const StopToken& token) : crew_(crew), token_(token) {}
    WalkLane(const WalkLane&) = delete;
    WalkLane& operator=(const WalkLane&) = delete;
    virtual ~WalkLane() = default;

    // Walks `top` and all below it but what is handed to other threads.
    void run(WalkFrame top);

protected:
    // Deals with one buffer of entries; adds the subfolders to be gone into to `frame.below`.
    virtual void look(WalkFrame& frame, RawListing& listing) = 0;
    // Opens a subfolder, or leaves it out.
    virtual std::optional<WalkFrame> enter(WalkFrame& parent, const NameList::Name& name) = 0;
    // The thread has nothing more to do in `frame`.
    virtual void leave(WalkFrame& frame) = 0;

    [[nodiscard]] bool shouldStop() const { return token_.stop_requested(); }
    // Opens a subfolder and nothing else, whatever has become of the name by now. Closes folders
    // further up when the process has no descriptor left.
    [[nodiscard]] Descriptor open(WalkFrame& parent, const NameList::Name& name);

private:
    void readOn(WalkFrame& frame);
    void descend();
    void ascend();
    void shareFolders();
    void closeSome(std::size_t upTo, const WalkFrame* kept);
    void close(WalkFrame& frame);
    [[nodiscard]] static bool reopen(WalkFrame& frame, const WalkFrame& below);

    WalkCrew& crew_;
    const StopToken& token_;
    RawListing listing_;
    std::vector<WalkFrame> frames_;
    std::size_t open_ = 0;       // frames whose folder is open
    std::size_t closeFrom_ = 0;  // those before it are closed, or large
    std::size_t shareFrom_ = 0;  // those before it have nothing to hand over
    std::size_t listed_ = 0;     // bytes of listings read
};

}  // namespace morvane::folder
