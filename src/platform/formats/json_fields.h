#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

// Checked readings of one JSON value. A value of another type than asked for, null too, gives
// nothing; none of them throws.

// The value under `key`, which may be null itself; a null pointer where `object` is no object or
// has no such key. Lives as long as the document.
[[nodiscard]] const nlohmann::json* find(const nlohmann::json& object, std::string_view key);

[[nodiscard]] std::optional<std::string> asText(const nlohmann::json& value);
[[nodiscard]] std::optional<bool> asBoolean(const nlohmann::json& value);
// A whole number that std::int64_t holds, however it is written (12, 12.0, 1.2e1).
[[nodiscard]] std::optional<std::int64_t> asInteger(const nlohmann::json& value);
// Any number; always finite.
[[nodiscard]] std::optional<double> asNumber(const nlohmann::json& value);
// An array of texts and nothing else.
[[nodiscard]] std::optional<std::vector<std::string>> asTexts(const nlohmann::json& value);

}  // namespace morvane
