#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <variant>

#include "driver/forms.h"
#include "driver/program.h"

namespace morvane::driver {

// What stands on the screen of the request `{"screen": NAME}`, or what is wrong with it.
[[nodiscard]] std::variant<Answer, std::string> readScreen(const nlohmann::json& request,
                                                           Program& program);

// What a request lets the program do, ready to be begun; or one sentence that says what is wrong
// with it, with nothing changed.
using Work = std::variant<std::function<void()>, std::string>;
[[nodiscard]] Work appearance(const nlohmann::json& request, Program& program);
[[nodiscard]] Work activation(const nlohmann::json& request, Program& program);
[[nodiscard]] Work press(const nlohmann::json& request, Program& program);

}  // namespace morvane::driver
