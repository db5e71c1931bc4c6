#include "model/files.h"

namespace morvane {

std::int64_t ageInMonths(const LargeFile& file, Instant now) {
    constexpr std::chrono::seconds month{2'592'000};
    return (now - file.since) / month;
}

}  // namespace morvane
