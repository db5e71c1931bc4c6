#include "model/cleanup.h"

#include <utility>

namespace morvane {

std::int64_t totalBytes(const std::vector<CleanupPart>& parts) {
    std::int64_t sum = 0;
    for (const CleanupPart& part : parts) sum += part.bytes;
    return sum;
}

CleanupItem withParts(CleanupItem item, std::vector<CleanupPart> parts) {
    item.bytes = totalBytes(parts);
    item.action = TrashAction{std::move(parts)};
    return item;
}

}  // namespace morvane
