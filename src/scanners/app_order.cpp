#include "scanners/app_order.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <string>

#include "model/letters.h"

namespace morvane::CleanupScanner {

namespace {

// An application that nobody knows to have been used was not used for longest.
std::int64_t daysUnused(const InstalledApp& app, Instant now) {
    if (!app.lastUsed) return std::numeric_limits<std::int64_t>::max();
    // In microseconds, for two instants may lie further apart than nanoseconds count.
    using std::chrono::microseconds;
    const auto elapsed =
        std::chrono::floor<microseconds>(now) - std::chrono::floor<microseconds>(*app.lastUsed);
    return std::chrono::duration_cast<std::chrono::days>(elapsed).count();
}

}  // namespace

std::vector<InstalledApp> visibleApps(const std::vector<InstalledApp>& apps, std::string_view query,
                                      AppSort sort, Instant now, const Region& region) {
    const std::string wanted = lowercased(trimmed(query));
    std::vector<InstalledApp> visible;
    for (const InstalledApp& app : apps) {
        if (wanted.empty() || lowercased(app.name).find(wanted) != std::string::npos) {
            visible.push_back(app);
        }
    }
    const auto before = [&](const InstalledApp& left, const InstalledApp& right) {
        if (sort == AppSort::size) {
            const double a = megabytes(left);
            const double b = megabytes(right);
            if (a != b) return a > b;
        }
        if (sort == AppSort::leastUsed) {
            const std::int64_t a = daysUnused(left, now);
            const std::int64_t b = daysUnused(right, now);
            if (a != b) return a > b;
        }
        const int order = compareNames(left.name, right.name, region);
        return order == 0 ? left.url < right.url : order < 0;
    };
    std::sort(visible.begin(), visible.end(), before);
    return visible;
}

}  // namespace morvane::CleanupScanner
