#include "platform/formats/json_weight.h"

namespace morvane {

bool weighJSON(std::string_view text) {
    if (text.size() > JSONLimits::bytes) return false;
    std::size_t levels = 0;
    std::size_t values = 1;
    bool inString = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char byte = text[at];
        // The parser takes a NUL for the end of the text and would pass over what follows.
        if (byte == '\0') return false;
        if (inString) {
            if (byte == '\\') ++at;
            if (byte == '"') inString = false;
            continue;
        }
        if (byte == '"') inString = true;
        if (byte == '[' || byte == '{') {
            if (++levels > JSONLimits::levels) return false;
            ++values;
        }
        if ((byte == ']' || byte == '}') && levels > 0) --levels;
        if (byte == ',') ++values;
        if (values > JSONLimits::values) return false;
    }
    return true;
}

}  // namespace morvane
