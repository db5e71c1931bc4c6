#include "model/words.h"

#include <cmath>
#include <cstdio>

#include "model/letters.h"

namespace morvane {

namespace {

std::string oneDecimal(double value, const char* unit) {
    char buffer[400];
    const int length = std::snprintf(buffer, sizeof buffer, "%.1f %s", value, unit);
    return {buffer, static_cast<std::size_t>(length)};
}

// Rounds halves away from zero and prints without an exponent, whatever the magnitude.
std::string whole(double value, const char* unit) {
    char buffer[400];
    const int length = std::snprintf(buffer, sizeof buffer, "%.0f %s", std::round(value), unit);
    return {buffer, static_cast<std::size_t>(length)};
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
