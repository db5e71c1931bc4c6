#pragma once

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <vector>

#include "model/files.h"
#include "platform/platform.h"

namespace morvane {

inline constexpr std::int64_t largeFileFloor = 100'000'000;

// A file or document bundle as the disk shows it.
struct LargeFileSighting {
    std::filesystem::path url;
    FolderIdentity folder;
    std::int64_t bytes = 0;
    std::optional<Instant> modified;
    std::optional<Instant> created;
};

// What one scan has found. Adding is safe from several threads at once.
class LargeFileFinds {
public:
    LargeFileFinds(const Platform& platform, Instant now) : platform_(platform), now_(now) {}

    // Keeps the sighting when it is large enough, and only then asks for the dates that the disk
    // itself does not show, which costs far more than seeing the file.
    void add(LargeFileSighting sighting);

    // In the order of their paths. Once no more is added.
    [[nodiscard]] std::vector<LargeFile> take();

private:
    const Platform& platform_;
    Instant now_;
    std::mutex mutex_;
    std::vector<LargeFile> files_;
};

}  // namespace morvane
