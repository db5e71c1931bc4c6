#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "scanners/docker.h"

// Docker writes sizes with three digits and a decimal unit, "1.23GB", and above 999.5 of a unit
// with an exponent, "1e+03MB". Digits and powers of ten are all there is, so the number is read by
// moving its decimal point, without rounding anywhere.

namespace morvane::CleanupScanner {

namespace {

constexpr std::array<std::pair<std::string_view, int>, 4> unitPowers{
    {{"KB", 3}, {"MB", 6}, {"GB", 9}, {"TB", 12}}};

constexpr int farAway = 10'000;  // a power of ten beyond all that is told apart
constexpr std::size_t mostDigits = 18;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

void skipBlanks(std::string_view& text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
}

// The digits at the start of `text`, taken off it.
std::string_view takeDigits(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    const auto length = static_cast<std::size_t>(end - text.begin());
    const std::string_view digits = text.substr(0, length);
    text.remove_prefix(length);
    return digits;
}

bool takeSign(std::string_view& text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    return isNegative;
}

// An exponent at the start of `text`, taken off it; 0, and nothing taken, when there is none.
int takeExponent(std::string_view& text) {
    std::string_view rest = text;
    if (!rest.starts_with('e') && !rest.starts_with('E')) return 0;
    rest.remove_prefix(1);
    const bool isNegative = takeSign(rest);
    const std::string_view digits = takeDigits(rest);
    if (digits.empty()) return 0;
    int power = 0;
    for (const char digit : digits) power = std::min(power * 10 + (digit - '0'), farAway);
    text = rest;
    return isNegative ? -power : power;
}

// The power of ten of the unit at the start of `text`.
int unitPower(std::string_view text) {
    std::string unit;
    for (const char c : text) {
        const bool isLower = c >= 'a' && c <= 'z';
        if (!isLower && !(c >= 'A' && c <= 'Z')) break;
        unit += isLower ? static_cast<char>(c - 'a' + 'A') : c;
    }
    for (const auto& [name, power] : unitPowers) {
        if (name == unit) return power;
    }
    return 0;
}

// The whole part of "whole.fraction" with its point moved `power` places to the right.
std::optional<std::int64_t> shifted(std::string_view whole, std::string_view fraction, int power) {
    std::string digits(whole);
    digits += fraction;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.empty()) return 0;
    const std::int64_t length = static_cast<std::int64_t>(digits.size()) -
                                static_cast<std::int64_t>(fraction.size()) + power;
    if (length <= 0) return 0;
    if (length > static_cast<std::int64_t>(mostDigits)) return std::nullopt;
    digits.resize(static_cast<std::size_t>(length), '0');
    std::int64_t value = 0;
    for (const char digit : digits) value = value * 10 + (digit - '0');
    return value;
}

}  // namespace

std::optional<std::int64_t> parseDockerSize(std::string_view text) {
    skipBlanks(text);
    const bool isNegative = takeSign(text);
    const std::string_view whole = takeDigits(text);
    std::string_view fraction;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        fraction = takeDigits(text);
    }
    if (whole.empty() && fraction.empty()) return std::nullopt;
    const int exponent = takeExponent(text);
    skipBlanks(text);
    const std::optional<std::int64_t> value = shifted(whole, fraction, exponent + unitPower(text));
    if (!value) return std::nullopt;
    return isNegative ? -*value : *value;
}

}  // namespace morvane::CleanupScanner
