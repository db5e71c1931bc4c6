#include "platform/folder/walk_lane.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

#include "platform/folder/file_status.h"

namespace morvane::folder {

namespace {

constexpr std::size_t mostOpen = 24;
constexpr std::size_t keptOpen = 12;
// The listing of some five hundred entries: below that a thread costs more than it saves.
constexpr std::size_t worthAThread = 16'384;
// A folder with more than this many buffers unread stays open.
constexpr int buffersReadAhead = 4;

Descriptor openFolder(int parent, const char* name) {
    return Descriptor(
        ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

}  // namespace

void WalkLane::run(WalkFrame top) {
    frames_.push_back(std::move(top));
    open_ = 1;
    closeFrom_ = 0;
    shareFrom_ = 0;
    while (!frames_.empty()) {
        WalkFrame& frame = frames_.back();
        if (shouldStop()) {
            ascend();
        } else if (!frame.below.isEmpty()) {
            shareFolders();
            if (!frame.below.isEmpty()) descend();
        } else if (!frame.allRead) {
            readOn(frame);
        } else {
            ascend();
        }
    }
}

void WalkLane::readOn(WalkFrame& frame) {
    if (!listing_.read(frame.folder.get())) {
        frame.allRead = true;
        frame.isCutShort = errno != 0;
        return;
    }
    listed_ += listing_.size();
    look(frame, listing_);
    if (listing_.wasLast()) frame.allRead = true;
}

void WalkLane::descend() {
    WalkFrame& parent = frames_.back();
    std::optional<WalkFrame> child = enter(parent, parent.below.take());
    if (!child) return;
    frames_.push_back(std::move(*child));
    ++open_;
    if (open_ > mostOpen) closeSome(keptOpen, nullptr);
}

void WalkLane::ascend() {
    WalkFrame done = std::move(frames_.back());
    frames_.pop_back();
    if (done.folder) --open_;
    if (!frames_.empty()) {
        const std::size_t last = frames_.size() - 1;
        WalkFrame& parent = frames_.back();
        closeFrom_ = std::min(closeFrom_, last);
        shareFrom_ = std::min(shareFrom_, last);
        if (!parent.folder) {
            if (!shouldStop() && reopen(parent, done)) {
                ++open_;
            } else {
                parent.below.clear();
                parent.allRead = true;
            }
        }
    }
    leave(done);
}

// Hands over from the top, where most lies below a folder.
void WalkLane::shareFolders() {
    if (listed_ >= worthAThread && !crew_.wantsFolders()) crew_.hire();
    while (crew_.wantsFolders()) {
        while (shareFrom_ < frames_.size() &&
               (!frames_[shareFrom_].folder || frames_[shareFrom_].below.isEmpty())) {
            ++shareFrom_;
        }
        if (shareFrom_ >= frames_.size()) return;
        WalkFrame& frame = frames_[shareFrom_];
        // The last folder on hand is this thread's own.
        if (shareFrom_ + 1 == frames_.size() && frame.below.hasOne()) return;
        std::optional<WalkFrame> child = enter(frame, frame.below.take());
        if (child) crew_.offer(std::move(*child));
    }
}

Descriptor WalkLane::open(WalkFrame& parent, const NameList::Name& name) {
    Descriptor opened = openFolder(parent.folder.get(), name.name.data());
    if (opened || (errno != EMFILE && errno != ENFILE)) return opened;
    const std::string kept(name.name);  // reading on moves the names
    closeSome(1, &parent);
    return openFolder(parent.folder.get(), kept.c_str());
}

// The two deepest frames stay open: the way up leads from the one to the other.
void WalkLane::closeSome(std::size_t upTo, const WalkFrame* kept) {
    const std::size_t end = frames_.size() < 2 ? 0 : frames_.size() - 2;
    for (; closeFrom_ < end && open_ > upTo; ++closeFrom_) {
        WalkFrame& frame = frames_[closeFrom_];
        if (!frame.folder || frame.isLarge) continue;
        if (&frame == kept) return;
        // What is unread is lost with the descriptor, so it is read now.
        for (int read = 0; read < buffersReadAhead && !frame.allRead; ++read) readOn(frame);
        if (!frame.below.isEmpty()) shareFrom_ = std::min(shareFrom_, closeFrom_);
        if (frame.allRead) {
            close(frame);
        } else {
            frame.isLarge = true;
        }
    }
    if (open_ <= mostOpen) return;
    // Nearly all that is open is large.
    for (std::size_t at = 0; at < end && open_ > mostOpen; ++at) {
        WalkFrame& frame = frames_[at];
        if (!frame.folder || &frame == kept) continue;
        while (!frame.allRead && !shouldStop()) readOn(frame);
        close(frame);
    }
}

void WalkLane::close(WalkFrame& frame) {
    if (!frame.identity.isKnown()) frame.identity = identityOf(frame.folder.get());
    frame.folder.close();
    --open_;
}

bool WalkLane::reopen(WalkFrame& frame, const WalkFrame& below) {
    if (!below.folder) return false;
    // Everything was read before it was closed, so that it need not be readable again.
    Descriptor above(::openat(below.folder.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!above || !frame.identity.isKnown() || identityOf(above.get()) != frame.identity) {
        return false;
    }
    frame.folder = std::move(above);
    return true;
}

}  // namespace morvane::folder
