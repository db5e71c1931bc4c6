#include "model/words.h"

#include <array>
#include <charconv>
#include <cmath>

#include "model/letters.h"

namespace morvane {

namespace {

// With that many decimals, a point before them whatever the user's language, and no exponent
// whatever the magnitude.
std::string fixed(double value, int decimals, const char* unit) {
    std::array<char, 400> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, decimals);
    return std::string(buffer.data(), written.ptr) + ' ' + unit;
}

std::string oneDecimal(double value, const char* unit) {
    return fixed(value, 1, unit);
}

// Rounds halves away from zero.
std::string whole(double value, const char* unit) {
    return fixed(std::round(value), 0, unit);
}

}  // namespace

std::string sizeText(double mb) {
    if (mb >= 1000) return oneDecimal(mb / 1000, "GB");
    if (mb >= 1) return whole(mb, "MB");
    return whole(std::fmax(std::round(mb * 1000), 1), "KB");
}

std::string capacityText(double gb) {
    if (gb >= 100) return whole(gb, "GB");
    if (gb != std::trunc(gb)) return oneDecimal(gb, "GB");
    return whole(gb, "GB");
}

std::string relativeDayWords(std::optional<Instant> date, Instant now, const Region& region) {
    return lowercased(relativeDayText(date, now, region));
}

std::string lastSweptText(std::optional<Instant> lastSweptAt, Instant now, const Region& region) {
    if (!lastSweptAt) return "Not swept yet";
    return "Last swept " + relativeDayWords(lastSweptAt, now, region);
}

std::string countText(std::int64_t count, std::string_view noun) {
    std::string text = std::to_string(count) + " ";
    text += noun;
    if (count != 1) text += 's';
    return text;
}

}  // namespace morvane
