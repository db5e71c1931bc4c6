#include "picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace morvane::sample {
namespace {

struct Colour {
    double red;
    double green;
    double blue;
};

constexpr std::array palette{
    Colour{214, 69, 65},  Colour{240, 140, 60}, Colour{234, 190, 70}, Colour{96, 170, 90},
    Colour{60, 160, 160}, Colour{66, 126, 200}, Colour{104, 96, 196}, Colour{176, 92, 170},
    Colour{90, 100, 116}, Colour{40, 48, 64},   Colour{150, 108, 78}, Colour{226, 110, 140},
};

std::uint8_t toByte(double value) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

void put(Picture& picture, const Colour& colour, double alpha) {
    picture.pixels.push_back(toByte(colour.red));
    picture.pixels.push_back(toByte(colour.green));
    picture.pixels.push_back(toByte(colour.blue));
    picture.pixels.push_back(toByte(alpha * 255));
}

Colour mixed(const Colour& from, const Colour& to, double share) {
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

/// How much of a pixel lies inside an outline that is `distance` pixels away, negative inside.
double coverage(double distance) {
    return std::clamp(0.5 - distance, 0.0, 1.0);
}

double roundedSquare(double x, double y, double half, double radius) {
    const double outX = std::max(std::abs(x) - (half - radius), 0.0);
    const double outY = std::max(std::abs(y) - (half - radius), 0.0);
    return std::sqrt(outX * outX + outY * outY) - radius;
}

/// Distance to the mark in the middle of an icon: disc, ring, lozenge or bars.
double mark(double x, double y, double size, std::uint64_t variety) {
    const double fromMiddle = std::sqrt(x * x + y * y);
    switch (variety % 4) {
        case 0:
            return fromMiddle - size;
        case 1:
            return std::abs(fromMiddle - size) - size * 0.28;
        case 2:
            return (std::abs(x) + std::abs(y)) * 0.7071 - size * 0.85;
        default:
            return std::max(std::abs(x) - size, std::abs(std::abs(y) - size * 0.5) - size * 0.22);
    }
}

void appendNumber(std::string& bytes, std::uint32_t value) {
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes.push_back(static_cast<char>(value >> shift & 0xffU));
    }
}

/// The remainders of every byte, for the checksum of a chunk.
constexpr std::array<std::uint32_t, 256> remainders = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value >> 1U) ^ ((value & 1U) != 0 ? 0xedb88320U : 0U);
        }
        table[byte] = value;
    }
    return table;
}();

std::uint32_t checksumOf(std::string_view bytes) {
    std::uint32_t sum = 0xffffffffU;
    for (const char letter : bytes) {
        sum = (sum >> 8U) ^ remainders[(sum ^ static_cast<unsigned char>(letter)) & 0xffU];
    }
    return ~sum;
}

std::uint32_t adlerOf(std::string_view bytes) {
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const char letter : bytes) {
        low = (low + static_cast<unsigned char>(letter)) % 65'521;
        high = (high + low) % 65'521;
    }
    return high << 16U | low;
}

void appendChunk(std::string& bytes, std::string_view kind, std::string_view content) {
    appendNumber(bytes, static_cast<std::uint32_t>(content.size()));
    const std::string checked = std::string(kind) + std::string(content);
    bytes += checked;
    appendNumber(bytes, checksumOf(checked));
}

/// A zlib stream of stored blocks.
std::string stored(std::string_view bytes) {
    constexpr std::size_t most = 65'535;
    std::string stream = "\x78\x01";
    const std::uint32_t sum = adlerOf(bytes);
    do {
        const std::string_view block = bytes.substr(0, most);
        bytes.remove_prefix(block.size());
        const auto length = static_cast<std::uint16_t>(block.size());
        const auto inverse = static_cast<std::uint16_t>(~length);
        stream.push_back(bytes.empty() ? '\1' : '\0');
        for (const std::uint16_t value : {length, inverse}) {
            stream.push_back(static_cast<char>(value & 0xffU));
            stream.push_back(static_cast<char>(value >> 8U));
        }
        stream += block;
    } while (!bytes.empty());
    appendNumber(stream, sum);
    return stream;
}

void appendIcon(std::string& bytes, std::string_view kind, const std::string& content) {
    bytes += kind;
    appendNumber(bytes, static_cast<std::uint32_t>(content.size() + 8));
    bytes += content;
}

}  // namespace

Picture drawIcon(int side, std::uint64_t variety) {
    Picture picture{.width = side, .height = side, .pixels = {}};
    picture.pixels.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 4);
    const Colour& base = palette[static_cast<std::size_t>(variety % palette.size())];
    const Colour white{255, 255, 255};
    const double middle = side / 2.0;
    for (int row = 0; row < side; ++row) {
        const Colour ground = mixed(mixed(base, white, 0.22), base, row / double(side));
        for (int column = 0; column < side; ++column) {
            const double x = column + 0.5 - middle;
            const double y = row + 0.5 - middle;
            const double inMark = coverage(mark(x, y, side * 0.21, variety / palette.size()));
            const double inTile = coverage(roundedSquare(x, y, side * 0.42, side * 0.19));
            put(picture, mixed(ground, white, inMark * 0.88), inTile);
        }
    }
    return picture;
}

Picture drawScene(int width, int height, std::uint64_t variety) {
    Picture picture{.width = width, .height = height, .pixels = {}};
    const Colour& sky = palette[static_cast<std::size_t>(variety % palette.size())];
    const Colour& ground = palette[static_cast<std::size_t>(variety / 7 % palette.size())];
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            const double hill = height * (0.55 + 0.1 * ((column * 7 / width) % 2));
            const double share = row / double(height);
            put(picture, row < hill ? mixed(sky, Colour{255, 250, 240}, share) : ground, 1);
        }
    }
    return picture;
}

std::string encodePng(const Picture& picture) {
    std::string header;
    appendNumber(header, static_cast<std::uint32_t>(picture.width));
    appendNumber(header, static_cast<std::uint32_t>(picture.height));
    header += std::string_view("\x08\x06\0\0\0", 5);
    std::string rows;
    const std::size_t rowBytes = static_cast<std::size_t>(picture.width) * 4;
    for (std::size_t start = 0; start < picture.pixels.size(); start += rowBytes) {
        rows.push_back('\0');
        for (std::size_t index = start; index < start + rowBytes; ++index) {
            rows.push_back(static_cast<char>(picture.pixels[index]));
        }
    }
    std::string bytes = "\x89PNG\r\n\x1a\n";
    appendChunk(bytes, "IHDR", header);
    appendChunk(bytes, "IDAT", stored(rows));
    appendChunk(bytes, "IEND", "");
    return bytes;
}

std::string iconFile(std::uint64_t variety, bool withLarge) {
    std::string entries;
    appendIcon(entries, "ic07", encodePng(drawIcon(128, variety)));
    if (withLarge) {
        appendIcon(entries, "ic08", encodePng(drawIcon(256, variety)));
    }
    std::string bytes;
    appendIcon(bytes, "icns", entries);
    return bytes;
}

}  // namespace morvane::sample
