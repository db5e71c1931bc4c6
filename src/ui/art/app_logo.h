#pragma once

#include <QPainter>

namespace morvane {

// The application's logo in the square of 100: the same in both appearances, as an icon is.
// `detailed` adds the light, the shadow and the crumbs that only a large size can carry. The
// painter's scale decides how finely the shadow is made.
void paintAppLogo(QPainter& painter, bool detailed);

}  // namespace morvane
