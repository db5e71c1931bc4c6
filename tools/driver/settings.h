#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

#include "core/app_state.h"

namespace morvane::driver {

// Writes the fields that `values`, an object, names. One unknown name or impossible value makes it
// a sentence that says so, and nothing is written.
[[nodiscard]] std::optional<std::string> writeFields(AppState& state, const nlohmann::json& values);

}  // namespace morvane::driver
