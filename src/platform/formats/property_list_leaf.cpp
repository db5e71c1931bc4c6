#include "platform/formats/property_list_leaf.h"

#include <cstddef>

namespace morvane {

namespace {

constexpr std::size_t none = std::string_view::npos;
constexpr std::string_view blank = " \t\r\n";
constexpr std::string_view decimal = "0123456789";

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t start = text.find_first_not_of(blank);
    if (start == none) return {};
    return text.substr(start, text.find_last_not_of(blank) - start + 1);
}

bool consistsOf(std::string_view text, std::string_view characters) {
    return !text.empty() && text.find_first_not_of(characters) == none;
}

bool isInteger(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    if (text.starts_with("0x") || text.starts_with("0X")) {
        return text.size() <= 18 && consistsOf(text.substr(2), "0123456789abcdefABCDEF");
    }
    return text.size() <= 20 && consistsOf(text, decimal);
}

bool isReal(std::string_view text) {
    constexpr std::size_t longest = 400;  // more digits than any double has before its point
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    if (text == "nan" || text == "inf" || text == "infinity") return true;
    return text.size() <= longest && text.find_first_of(decimal) != none &&
           consistsOf(text, "0123456789.eE+-");
}

// "2024-11-03T18:22:05Z" with each figure within its range.
bool isDate(std::string_view text) {
    constexpr std::string_view form = "9999-19-39T29:59:59Z";  // the most each digit may be
    if (text.size() != form.size()) return false;
    for (std::size_t at = 0; at < form.size(); ++at) {
        const bool isDigit = form[at] >= '0' && form[at] <= '9';
        if (isDigit ? text[at] < '0' || text[at] > form[at] : text[at] != form[at]) return false;
    }
    const std::string_view month = text.substr(5, 2);
    const std::string_view day = text.substr(8, 2);
    return month >= "01" && month <= "12" && day >= "01" && day <= "31" &&
           text.substr(11, 2) <= "23";
}

}  // namespace

bool isSoundLeaf(std::string_view name, std::string_view content) {
    const std::string_view text = withoutBlanks(content);
    if (name == "integer") return isInteger(text);
    if (name == "real") return isReal(text);
    if (name == "date") return isDate(text);
    return true;
}

}  // namespace morvane
