#include <cstdint>
#include <cstdlib>

#include "measure/disk_usage.h"
#include "measure/storage_tree.h"

// A record that was read can be added up and drawn, and comes back from its own text as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    const auto disk = decodeDiskUsage({reinterpret_cast<const char*>(data), size});
    if (!disk) return 0;
    for (const DiskUsage::Slice& slice : slices(*disk)) {
        if (sliceIdentity(slice).empty()) std::abort();
    }
    (void)StorageScanner::storageRoot(*disk, {}, disk->systemBytes, false);
    if (decodeDiskUsage(encodeDiskUsage(*disk)) != disk) std::abort();
    return 0;
}
