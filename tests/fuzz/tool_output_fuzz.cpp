#include <cstdint>
#include <cstdlib>
#include <set>

#include "model/path_text.h"
#include "scanners/docker.h"
#include "scanners/runtimes.h"

// What the simulator tool and Docker write becomes items of sensible sizes, each id once of Docker,
// and words that are text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    using namespace morvane::CleanupScanner;
    const std::string_view output(reinterpret_cast<const char*>(data), size);
    std::int64_t sum = 0;
    const auto check = [&](const CleanupItem& item) {
        if (item.bytes < 1 || !isUTF8(item.id) || !isUTF8(item.name)) std::abort();
        sum += item.bytes;
    };
    for (const CleanupItem& item : runtimeItems(runtimesIn(output))) check(item);
    std::set<std::string> ids;
    for (const CleanupItem& item : dockerItems("/docker", output)) {
        check(item);
        if (!ids.insert(item.id).second) std::abort();
    }
    if (parseDockerSize(output).value_or(0) > 999'999'999'999'999'999) std::abort();
    return sum < 0 ? 1 : 0;
}
