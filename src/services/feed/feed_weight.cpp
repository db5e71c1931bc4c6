#include "services/feed/feed_weight.h"

#include <algorithm>

namespace morvane {

namespace {

constexpr std::size_t longestTag = 4096;

// What follows `end`, or nothing where that does not come.
std::string_view after(std::string_view text, std::string_view end) {
    const std::size_t at = text.find(end);
    return at == std::string_view::npos ? std::string_view() : text.substr(at + end.size());
}

// How far the tag at the start of `text` reaches: to the first ">" outside quotes.
std::size_t tagLength(std::string_view text) {
    char quote = '\0';
    const std::size_t limit = std::min(text.size(), longestTag + 1);
    for (std::size_t at = 0; at < limit; ++at) {
        const char c = text[at];
        if (quote != '\0') {
            if (c == quote) quote = '\0';
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at + 1;
        }
    }
    return limit;
}

}  // namespace

bool isLightXML(std::string_view document) {
    while (true) {
        const std::size_t start = document.find('<');
        if (start == std::string_view::npos) return true;
        document.remove_prefix(start);
        if (document.starts_with("<!--")) {
            document = after(document.substr(4), "-->");
        } else if (document.starts_with("<![CDATA[")) {
            document = after(document, "]]>");
        } else {
            const std::size_t length = tagLength(document);
            if (length > longestTag) return false;
            document.remove_prefix(length);
        }
    }
}

}  // namespace morvane
