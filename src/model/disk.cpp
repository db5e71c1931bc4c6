#include "model/disk.h"

#include <algorithm>

namespace morvane {

std::vector<DiskUsage::Slice> slices(const DiskUsage& disk) {
    using Kind = DiskUsage::Slice::Kind;
    constexpr DiskCategory walked[] = {DiskCategory::apps, DiskCategory::media,
                                       DiskCategory::documents, DiskCategory::developer};

    const std::int64_t used =
        std::max<std::int64_t>(disk.totalBytes - disk.freeBytes - disk.purgeableBytes, 0);
    const std::int64_t system = disk.systemBytes ? std::min(*disk.systemBytes, used) : 0;
    std::int64_t sum = 0;
    for (const auto& [category, bytes] : disk.measured) sum += bytes;
    double scale = 1.0;
    if (sum > 0 && used - system < sum) {
        scale = static_cast<double>(used - system) / static_cast<double>(sum);
    }

    std::vector<DiskUsage::Slice> result;
    std::int64_t rest = used;
    const auto add = [&](Kind kind, std::int64_t bytes) {
        result.push_back({kind, bytes});
        rest -= bytes;
    };
    for (DiskCategory category : walked) {
        const auto found = disk.measured.find(category);
        if (found == disk.measured.end() || found->second <= 0) continue;
        add({Kind::Case::category, category},
            static_cast<std::int64_t>(scale * static_cast<double>(found->second)));
    }
    if (system >= 1) add({Kind::Case::category, DiskCategory::system}, system);
    if (rest > 0) {
        add(disk.isComplete ? Kind{Kind::Case::category, DiskCategory::other}
                            : Kind{Kind::Case::pending, DiskCategory::other},
            rest);
    }
    if (disk.purgeableBytes > 0) {
        add({Kind::Case::purgeable, DiskCategory::other}, disk.purgeableBytes);
    }
    return result;
}

std::string_view sliceIdentity(const DiskUsage::Slice& slice) {
    switch (slice.kind.value) {
        case DiskUsage::Slice::Kind::Case::category:
            return rawValue(slice.kind.category);
        case DiskUsage::Slice::Kind::Case::pending:
            return "pending";
        case DiskUsage::Slice::Kind::Case::purgeable:
            return "purgeable";
    }
    return {};
}

}  // namespace morvane
