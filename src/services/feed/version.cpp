#include "services/feed/version.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr std::size_t longestVersion = 64;

// Takes the first number off, without the zeros before it; nothing is left of zero and of a number
// that is not there.
std::string_view takeNumber(std::string_view& version) {
    const std::string_view number = version.substr(0, version.find('.'));
    version.remove_prefix(std::min(version.size(), number.size() + 1));
    return number.substr(std::min(number.size(), number.find_first_not_of('0')));
}

std::strong_ordering compareNumbers(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return left.size() <=> right.size();
    return left.compare(right) <=> 0;
}

}  // namespace

bool isVersion(std::string_view text) {
    if (text.empty() || text.size() > longestVersion) return false;
    char before = '.';
    for (const char c : text) {
        const bool isDigit = c >= '0' && c <= '9';
        if (!isDigit && (c != '.' || before == '.')) return false;
        before = c;
    }
    return before != '.';
}

std::strong_ordering compareVersions(std::string_view left, std::string_view right) {
    while (!left.empty() || !right.empty()) {
        const std::string_view number = takeNumber(left);
        const auto order = compareNumbers(number, takeNumber(right));
        if (order != std::strong_ordering::equal) return order;
    }
    return std::strong_ordering::equal;
}

}  // namespace morvane
