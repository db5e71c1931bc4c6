#pragma once

#include <memory>

#include "driver/forms.h"
#include "ui/screens/screen.h"

namespace morvane::driver {

// What stands on `screen` now.
[[nodiscard]] Answer screenAnswer(const screens::Screen& screen);

}  // namespace morvane::driver
