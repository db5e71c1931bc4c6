#include <cstdint>
#include <cstdlib>

#include "measure/disk_usage.h"
#include "measure/storage_tree.h"

// What the system's volumes hold is nothing, or a figure that can be added to others.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const char* device : {"/dev/disk3s1s1", ""}) {
        const auto bytes = systemBytesFrom(text, device);
        if (!bytes) continue;
        if (*bytes < 0) std::abort();
        DiskUsage disk;
        disk.totalBytes = 500'000'000'000;
        disk.systemBytes = bytes;
        (void)slices(disk);
        (void)StorageScanner::storageRoot(disk, {}, bytes, true);
    }
    return 0;
}
