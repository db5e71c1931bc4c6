#include "platform/formats/property_list_library.h"

#include <cstdint>

namespace morvane {

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

}  // namespace

std::string objectBytes(plist_t node) {
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    // A list of one object has one byte of offsets after it.
    std::string object;
    if (bytes && length > headerSize + 1 + trailerSize) {
        object.assign(bytes + headerSize, length - headerSize - 1 - trailerSize);
    }
    plist_to_bin_free(bytes);
    return object;
}

OwnedNode nodeFromObjectBytes(std::string_view object) {
    std::string bytes = "bplist00";
    bytes += object;
    const std::size_t table = bytes.size();
    bytes += static_cast<char>(headerSize);
    std::string trailer(trailerSize, '\0');
    trailer[6] = 1;   // width of an offset
    trailer[7] = 1;   // width of a reference
    trailer[15] = 1;  // number of objects
    trailer[31] = static_cast<char>(table);
    bytes += trailer;
    plist_t node = nullptr;
    plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
    return OwnedNode(node);
}

}  // namespace morvane
