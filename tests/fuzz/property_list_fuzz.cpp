#include <cstdint>
#include <cstdlib>

#include "platform/formats/property_list.h"

// What can be read can be written, and comes back as it was but for what is left out, so that from
// then on it stays the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    const auto list = readPropertyList({reinterpret_cast<const char*>(data), size});
    if (!list) return 0;
    const std::string once = writeBinaryPropertyList(*list);
    const auto again = readPropertyList(once);
    if (once.empty() ? again.has_value() : !again) std::abort();
    if (again && writeBinaryPropertyList(*again) != once) std::abort();
    return 0;
}
