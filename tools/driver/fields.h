#pragma once

#include <optional>
#include <string>

#include "driver/forms.h"

namespace morvane::driver {

// The field or computed value of that name as it stands now; nothing for an unknown name.
[[nodiscard]] std::optional<Answer> readField(const AppState& state, const std::string& name);

}  // namespace morvane::driver
