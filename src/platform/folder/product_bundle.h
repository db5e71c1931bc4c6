#pragma once

#include "platform/system.h"

namespace morvane::folder {

// What the product's own bundle says, for a disk whose answers name no other.
[[nodiscard]] BundleInfo productBundle();

}  // namespace morvane::folder
