#include "platform/formats/json_fields.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

namespace morvane {

const nlohmann::json* find(const nlohmann::json& object, std::string_view key) {
    if (!object.is_object()) return nullptr;
    const auto found = object.find(std::string(key));
    return found == object.end() ? nullptr : &*found;
}

std::optional<std::string> asText(const nlohmann::json& value) {
    const auto* text = value.get_ptr<const std::string*>();
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<bool> asBoolean(const nlohmann::json& value) {
    const auto* boolean = value.get_ptr<const bool*>();
    return boolean ? std::optional(*boolean) : std::nullopt;
}

std::optional<std::int64_t> asInteger(const nlohmann::json& value) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr double beyond = 9223372036854775808.0;  // 2^63
    if (const auto* positive = value.get_ptr<const nlohmann::json::number_unsigned_t*>()) {
        if (*positive > static_cast<std::uint64_t>(most)) return std::nullopt;
        return static_cast<std::int64_t>(*positive);
    }
    if (const auto* whole = value.get_ptr<const nlohmann::json::number_integer_t*>()) return *whole;
    if (const auto* real = value.get_ptr<const nlohmann::json::number_float_t*>()) {
        // -2^63 itself is read as an integer; as a double it stands for what lies beyond too.
        if (*real > -beyond && *real < beyond && std::trunc(*real) == *real) {
            return static_cast<std::int64_t>(*real);
        }
    }
    return std::nullopt;
}

std::optional<double> asNumber(const nlohmann::json& value) {
    if (!value.is_number()) return std::nullopt;
    const double number = value.get<double>();
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<std::vector<std::string>> asTexts(const nlohmann::json& value) {
    if (!value.is_array()) return std::nullopt;
    std::vector<std::string> texts;
    texts.reserve(value.size());
    for (const nlohmann::json& element : value) {
        const auto* text = element.get_ptr<const std::string*>();
        if (!text) return std::nullopt;
        texts.push_back(*text);
    }
    return texts;
}

}  // namespace morvane
