#include "model/letters.h"

#include <algorithm>
#include <memory>
#include <unicode/brkiter.h>
#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "model/path_text.h"

namespace morvane {

namespace {

std::string utf8(const icu::UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

// Most names are, and need none of the tables.
bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

icu::UnicodeString unicode(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
}

}  // namespace

std::string lowercased(std::string_view text) {
    if (isASCII(text)) {
        std::string lower(text);
        for (char& c : lower) {
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        }
        return lower;
    }
    return utf8(unicode(text).toLower(icu::Locale::getRoot()));
}

std::string withUppercasedFirst(std::string_view text) {
    if (text.empty()) return {};
    std::string_view rest = text;
    icu::UnicodeString first(static_cast<UChar32>(takeCharacter(rest)));
    return utf8(first.toUpper(icu::Locale::getRoot())).append(rest);
}

bool isLetter(char32_t character) {
    const auto mask = U_GET_GC_MASK(static_cast<UChar32>(character));
    return (mask & (U_GC_L_MASK | U_GC_M_MASK)) != 0;
}

bool isNumber(char32_t character) {
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & U_GC_N_MASK) != 0;
}

bool isWhitespace(char32_t character) {
    return u_isUWhiteSpace(static_cast<UChar32>(character)) != 0;
}

char32_t takeCharacter(std::string_view& text) {
    const std::size_t length = utf8SequenceLength(text);
    const auto byte = [&](std::size_t index) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[index]));
    };
    char32_t character = 0xFFFD;
    if (length == 1) {
        character = byte(0);
    } else if (length == 2) {
        character = ((byte(0) & 0x1FU) << 6U) | (byte(1) & 0x3FU);
    } else if (length == 3) {
        character = ((byte(0) & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
    } else if (length == 4) {
        character = ((byte(0) & 0x07U) << 18U) | ((byte(1) & 0x3FU) << 12U) |
                    ((byte(2) & 0x3FU) << 6U) | (byte(3) & 0x3FU);
    }
    text.remove_prefix(length == 0 ? 1 : length);
    return character;
}

void appendCharacter(std::string& text, char32_t character) {
    icu::UnicodeString(static_cast<UChar32>(character)).toUTF8String(text);
}

std::string trimmed(std::string_view text) {
    std::string result;
    std::string pending;
    while (!text.empty()) {
        const std::string_view before = text;
        const char32_t character = takeCharacter(text);
        const std::string_view bytes = before.substr(0, before.size() - text.size());
        if (isWhitespace(character)) {
            if (!result.empty()) pending += bytes;
            continue;
        }
        result += pending;
        pending.clear();
        result += bytes;
    }
    return result;
}

std::string withoutWhitespace(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::string_view before = text;
        if (!isWhitespace(takeCharacter(text))) {
            result += before.substr(0, before.size() - text.size());
        }
    }
    return result;
}

std::int64_t characterCount(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> breaks(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) return 0;
    const icu::UnicodeString characters = unicode(text);
    breaks->setText(characters);
    std::int64_t count = 0;
    while (breaks->next() != icu::BreakIterator::DONE) ++count;
    return count;
}

int compareNames(std::string_view left, std::string_view right, const Region& region) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale(region.locale.c_str()), status));
    if (U_FAILURE(status)) return left.compare(right);
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    return collator->compare(unicode(left), unicode(right));
}

int compareNumerically(std::string_view left, std::string_view right) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto takeNumber = [&](std::string_view& text) {
        std::size_t length = 0;
        while (length < text.size() && isDigit(text[length])) ++length;
        std::string_view digits = text.substr(0, length);
        text.remove_prefix(length);
        while (!digits.empty() && digits.front() == '0') digits.remove_prefix(1);
        return digits;
    };
    while (!left.empty() && !right.empty()) {
        if (isDigit(left.front()) && isDigit(right.front())) {
            const std::string_view a = takeNumber(left);
            const std::string_view b = takeNumber(right);
            if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
            if (const int order = a.compare(b); order != 0) return order;
        } else {
            const auto a = static_cast<unsigned char>(left.front());
            const auto b = static_cast<unsigned char>(right.front());
            if (a != b) return a < b ? -1 : 1;
            left.remove_prefix(1);
            right.remove_prefix(1);
        }
    }
    if (left.empty() && right.empty()) return 0;
    return left.empty() ? -1 : 1;
}

}  // namespace morvane
