#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

#include "platform/file_system.h"

namespace morvane::folder {

// A folder that was entered, with its visit. It ends when the thread that reads it has left it and
// every folder entered below it has ended, whichever thread that happens on. Any thread.
class WalkNode final : public WalkedFolder {
public:
    // The top of a walk; `path` is as the caller gave it. The visit is the caller's.
    WalkNode(std::string path, FolderVisit& visit, FolderIdentity identity)
        : name_(std::move(path)), visit_(&visit), identity_(identity) {}
    // A folder in `parent`, which is kept from ending until this one has.
    WalkNode(WalkNode& parent, std::string name, std::unique_ptr<FolderVisit> visit,
             FolderIdentity identity);

    [[nodiscard]] std::filesystem::path path() const override;
    [[nodiscard]] FolderIdentity identity() const override { return identity_; }

    void entries(std::span<const WalkedEntry> batch);
    [[nodiscard]] std::unique_ptr<FolderVisit> enter(const WalkedEntry& entry);
    void ended(std::unique_ptr<FolderVisit> child);

    // Takes one reason away for which `node` has not ended; with the last one its visit goes to the
    // folder above and it is destroyed (but for the top), and so on upwards.
    static void letGo(WalkNode* node);

private:
    WalkNode* parent_ = nullptr;
    std::string name_;
    FolderVisit* visit_;
    std::unique_ptr<FolderVisit> owned_;
    FolderIdentity identity_;
    std::mutex calls_;             // the calls for one visit never overlap
    std::atomic<int> unended_{1};  // the reading thread, and the folders entered below
};

}  // namespace morvane::folder
