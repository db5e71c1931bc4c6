#include "platform/formats/json.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace morvane {

namespace {

// Whether the text keeps to the limits, by its brackets, commas and strings alone: of a text that
// is JSON at all, these count every level exactly and no fewer values than there are.
bool isWithinLimits(std::string_view text) {
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

}  // namespace

JSONDocument::JSONDocument(std::unique_ptr<const nlohmann::json> root) : root_(std::move(root)) {}
JSONDocument::JSONDocument(JSONDocument&&) noexcept = default;
JSONDocument& JSONDocument::operator=(JSONDocument&&) noexcept = default;
JSONDocument::~JSONDocument() = default;

std::optional<JSONDocument> readJSON(std::string_view text) {
    if (!isWithinLimits(text)) return std::nullopt;
    auto root = std::make_unique<nlohmann::json>(
        nlohmann::json::parse(text.begin(), text.end(), nullptr, /*allow_exceptions=*/false));
    if (root->is_discarded()) return std::nullopt;
    return JSONDocument(std::move(root));
}

}  // namespace morvane
