#pragma once

#include <string>
#include <string_view>

#include "driver/program.h"

namespace morvane::driver {

// Carries out one request and gives its answer, one JSON object without a line break. What is wrong
// with a request is its answer, and then nothing has changed.
[[nodiscard]] std::string answerTo(std::string_view line, Program& program);

// The answer that says only what was wrong.
[[nodiscard]] std::string errorAnswer(const std::string& sentence);

}  // namespace morvane::driver
