#include "model/files.h"

namespace morvane {

std::int64_t ageInMonths(const LargeFile& file, Instant now) {
    // Nanoseconds would overflow between dates that lie three centuries apart.
    using std::chrono::microseconds;
    const auto elapsed = std::chrono::floor<microseconds>(now.time_since_epoch()) -
                         std::chrono::floor<microseconds>(file.since.time_since_epoch());
    constexpr std::chrono::seconds month{2'592'000};
    return elapsed / month;
}

}  // namespace morvane
