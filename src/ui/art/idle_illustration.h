#pragma once

#include <QPainter>

namespace morvane {

// A pan before its work, with crumbs in front of it, in the square of 100.
void paintIdleIllustration(QPainter& painter, bool dark);

}  // namespace morvane
