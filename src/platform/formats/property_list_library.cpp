#include "platform/formats/property_list_library.h"

#include <cstdint>

namespace morvane {

std::string objectBytes(plist_t node) {
    constexpr std::size_t headerSize = 8;
    constexpr std::size_t tableSize = 1;  // one byte of offset for the one object
    constexpr std::size_t trailerSize = 32;
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    std::string object;
    if (bytes && length > headerSize + tableSize + trailerSize) {
        object.assign(bytes + headerSize, length - headerSize - tableSize - trailerSize);
    }
    plist_to_bin_free(bytes);
    return object;
}

}  // namespace morvane
