#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/region.h"

namespace morvane {

// Text is UTF-8; what is not valid in it counts as U+FFFD, which is no letter and no number.
// "Letter", "number" and "white space" are the properties of Unicode, in every script.

// Lower case by the rules of no language in particular.
[[nodiscard]] std::string lowercased(std::string_view text);
// Upper case of the first character; the rest is left as it is.
[[nodiscard]] std::string withUppercasedFirst(std::string_view text);

[[nodiscard]] bool isLetter(char32_t character);
[[nodiscard]] bool isNumber(char32_t character);
[[nodiscard]] bool isWhitespace(char32_t character);

// Takes the first character off `text`, which must not be empty.
[[nodiscard]] char32_t takeCharacter(std::string_view& text);
void appendCharacter(std::string& text, char32_t character);

[[nodiscard]] std::string trimmed(std::string_view text);
[[nodiscard]] std::string withoutWhitespace(std::string_view text);
// What the user would count as characters.
[[nodiscard]] std::int64_t characterCount(std::string_view text);

// Negative, zero or positive, as a file list in the user's language orders names: case and accents
// count last, and runs of digits by their value.
[[nodiscard]] int compareNames(std::string_view left, std::string_view right, const Region& region);

// Negative, zero or positive by comparing runs of digits by value and the rest as text, so that
// "17.10" comes after "17.9".
[[nodiscard]] int compareNumerically(std::string_view left, std::string_view right);

}  // namespace morvane
