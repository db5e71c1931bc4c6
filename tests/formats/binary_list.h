#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace morvane {

inline std::string bigEndian(std::uint64_t number, std::size_t width) {
    std::string bytes;
    for (std::size_t left = width; left > 0; --left) {
        bytes += static_cast<char>(left > 8 ? 0 : number >> (8 * (left - 1)) & 255U);
    }
    return bytes;
}

// A binary property list put together from the bytes of its objects, sound or not. References are
// two bytes wide, offsets four; the first object is the top one.
inline std::string binaryList(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += bigEndian(bytes.size(), 4);
        bytes += object;
    }
    const std::size_t table = bytes.size();
    return bytes + offsets + std::string(6, '\0') + "\x04\x02" + bigEndian(objects.size(), 8) +
           bigEndian(0, 8) + bigEndian(table, 8);
}

// An array (kind 0xA) or dictionary (kind 0xD) of at most 14 elements.
inline std::string container(unsigned kind, const std::vector<std::uint64_t>& references) {
    const std::size_t size = kind == 0xD ? references.size() / 2 : references.size();
    std::string bytes(1, static_cast<char>(kind << 4U | static_cast<unsigned>(size)));
    for (const std::uint64_t reference : references) bytes += bigEndian(reference, 2);
    return bytes;
}

inline std::string xmlList(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n" +
           content + "\n</plist>\n";
}

inline std::string repeated(const std::string& piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t at = 0; at < times; ++at) text += piece;
    return text;
}

}  // namespace morvane
