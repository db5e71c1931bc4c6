#pragma once

#include <QList>
#include <QRect>
#include <optional>
#include <string>
#include <string_view>

namespace morvane {

// Where the main window stands, as it is kept: "x y width height" in whole logical pixels of its
// content, the corner counted from that of the first screen.
[[nodiscard]] std::string windowPlaceText(const QRect& place);
// Nothing for a text of another form, or with numbers that no window has.
[[nodiscard]] std::optional<QRect> readWindowPlace(std::string_view text);

// Where the window comes to stand. `screens` is what each screen has free for windows, the first
// one first. A kept place counts where the user could take hold of the window there; else it is
// 1100 by 720 in the middle of the first screen. No larger than the screen it lies on.
[[nodiscard]] QRect windowPlace(const std::optional<QRect>& kept, const QList<QRect>& screens);

}  // namespace morvane
