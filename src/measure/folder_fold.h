#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "model/disk.h"

namespace morvane::StorageScanner {

// Folds the children of one folder as they come, however many there are: holds the largest few and
// a running sum, which is all that the folder's node can need, since what is kept is always a part
// of the largest. Of children of equal size the earlier stand first.
class FolderFold {
public:
    // Counts a child of `bytes`; `make` builds its node and is called only while that child may
    // still be kept.
    template <class Make>
    void add(std::int64_t bytes, Make&& make) {
        total_ += bytes;
        if (mayBeKept(bytes)) insert(std::forward<Make>(make)());
    }
    // Counts a child that is not to be kept whatever its size.
    void addUnseen(std::int64_t bytes) { total_ += bytes; }

    [[nodiscard]] std::int64_t total() const { return total_; }
    // The children that the node keeps, largest first, "Other items" last where anything is left
    // over; none for a folder that is folded. Empties the fold but for its total.
    [[nodiscard]] std::vector<StorageNode> takeKept();

private:
    struct Candidate {
        StorageNode node;
        std::uint64_t arrival = 0;
    };
    static bool standsBefore(const Candidate& left, const Candidate& right);

    [[nodiscard]] bool mayBeKept(std::int64_t bytes) const;
    void insert(StorageNode node);

    std::int64_t total_ = 0;
    std::uint64_t arrivals_ = 0;
    std::vector<Candidate> largest_;  // a heap whose front would be the first to go
};

}  // namespace morvane::StorageScanner
