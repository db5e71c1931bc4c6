#include "platform/formats/json.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace morvane {

JSONDocument::JSONDocument(std::unique_ptr<const nlohmann::json> root) : root_(std::move(root)) {}
JSONDocument::JSONDocument(JSONDocument&&) noexcept = default;
JSONDocument& JSONDocument::operator=(JSONDocument&&) noexcept = default;
JSONDocument::~JSONDocument() = default;

std::optional<JSONDocument> readJSON(std::string_view text) {
    if (!weighJSON(text)) return std::nullopt;
    auto root = std::make_unique<nlohmann::json>(
        nlohmann::json::parse(text.begin(), text.end(), nullptr, /*allow_exceptions=*/false));
    if (root->is_discarded()) return std::nullopt;
    return JSONDocument(std::move(root));
}

}  // namespace morvane
