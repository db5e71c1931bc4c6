#pragma once

#include "platform/folder/disk_root.h"
#include "platform/folder/host.h"
#include "platform/folder/removal_calls.h"
#include "platform/remover.h"

namespace morvane::folder {

// Removal on a disk that lies in a folder, with ".Trash" of the home folder as its Trash. Each call
// reads the host's answers anew. Any thread, several at once.
class DiskRemover final : public Remover {
public:
    // All three have to live as long as this.
    DiskRemover(const DiskRoot& disk, const HostAnswers& host,
                RemovalCalls& calls = RemovalCalls::real())
        : disk_(disk), host_(host), calls_(calls) {}

    RemovalReport recycle(const std::vector<RemovalTarget>& targets) override;
    RemovalReport removeOutright(const std::vector<RemovalTarget>& targets) override;
    std::optional<Failure> putBack(const std::filesystem::path& from,
                                   const std::filesystem::path& to) override;

private:
    const DiskRoot& disk_;
    const HostAnswers& host_;
    RemovalCalls& calls_;
};

}  // namespace morvane::folder
