#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "model/instant.h"
#include "platform/file_system.h"

namespace morvane {

// What a subtree holds, added up by the folders of a deep walk: the allocated sizes of its regular
// files, hidden ones and the insides of packages too, and their latest modification where the walk
// asks for dates. Adding is safe from several threads at once.
class TreeSum {
public:
    void add(std::span<const WalkedEntry> batch);

    [[nodiscard]] std::int64_t bytes() const { return bytes_.load(); }
    [[nodiscard]] std::optional<Instant> newest() const;
    // Makes of every folder below the one that is summed a visit that adds here.
    [[nodiscard]] std::unique_ptr<FolderVisit> enterFolder();

private:
    static constexpr Instant none = Instant::min();

    std::atomic<std::int64_t> bytes_{0};
    std::atomic<Instant::duration::rep> newest_{none.time_since_epoch().count()};
};

}  // namespace morvane
