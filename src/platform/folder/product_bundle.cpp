#include "platform/folder/product_bundle.h"

namespace morvane::folder {

BundleInfo productBundle() {
    return {.identifier = "app.morvane.Morvane",
            .shortVersion = MORVANE_VERSION,
            .version = "1",
            .copyright = "© 2026 The Morvane authors"};
}

}  // namespace morvane::folder
