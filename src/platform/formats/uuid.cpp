#include "platform/formats/uuid.h"

#include <cstdint>
#include <random>

namespace morvane {

namespace {

constexpr std::size_t length = 36;

bool isHyphen(std::size_t at) {
    return at == 8 || at == 13 || at == 18 || at == 23;
}

bool isHexadecimal(char character) {
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

}  // namespace

bool isUUID(std::string_view text) {
    if (text.size() != length) return false;
    for (std::size_t at = 0; at < length; ++at) {
        if (isHyphen(at) ? text[at] != '-' : !isHexadecimal(text[at])) return false;
    }
    return true;
}

std::string makeUUID() {
    std::random_device device;
    std::string text;
    std::uint32_t bits = 0;
    unsigned bitsLeft = 0;
    for (std::size_t at = 0; at < length; ++at) {
        if (isHyphen(at)) {
            text += '-';
            continue;
        }
        if (bitsLeft == 0) {
            bits = device();
            bitsLeft = 32;
        }
        unsigned digit = bits & 15U;
        bits >>= 4U;
        bitsLeft -= 4;
        if (at == 14) digit = 4;                  // the version
        if (at == 19) digit = 8U | (digit & 3U);  // the variant
        text += "0123456789ABCDEF"[digit];
    }
    return text;
}

}  // namespace morvane
