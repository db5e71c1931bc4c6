#include "app/window_place.h"

#include <QSize>
#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace morvane {

namespace {

constexpr int farthest = 32'767;  // what a window system counts up to
constexpr int smallest = 200;
constexpr QSize usual(1100, 720);

// As much of the window's head as a hand needs.
constexpr QSize grip(120, 24);

bool canBeTakenHold(const QRect& place, const QRect& screen) {
    const QRect shown = QRect(place.topLeft(), QSize(place.width(), grip.height())) & screen;
    return shown.width() >= grip.width() && shown.height() >= grip.height();
}

QRect within(const QRect& place, const QRect& screen) {
    return {place.topLeft(), place.size().boundedTo(screen.size())};
}

}  // namespace

std::string windowPlaceText(const QRect& place) {
    return std::to_string(place.x()) + ' ' + std::to_string(place.y()) + ' ' +
           std::to_string(place.width()) + ' ' + std::to_string(place.height());
}

std::optional<QRect> readWindowPlace(std::string_view text) {
    std::array<int, 4> numbers{};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t each = 0; each < numbers.size(); ++each) {
        if (each > 0) {
            if (at == end || *at != ' ') return std::nullopt;
            ++at;
        }
        const auto [next, wrong] = std::from_chars(at, end, numbers.at(each));
        if (wrong != std::errc()) return std::nullopt;
        at = next;
    }
    const auto [x, y, width, height] = numbers;
    const auto isFar = [](int number) { return number < -farthest || number > farthest; };
    if (at != end || std::any_of(numbers.begin(), numbers.end(), isFar)) return std::nullopt;
    if (width < smallest || height < smallest) return std::nullopt;
    return QRect(x, y, width, height);
}

QRect windowPlace(const std::optional<QRect>& kept, const QList<QRect>& screens) {
    if (kept) {
        for (const QRect& screen : screens) {
            if (canBeTakenHold(*kept, screen)) return within(*kept, screen);
        }
    }
    if (screens.isEmpty()) return {QPoint(0, 0), usual};
    const QRect& first = screens.constFirst();
    QRect place = within(QRect(first.topLeft(), usual), first);
    place.moveCenter(first.center());
    return place;
}

}  // namespace morvane
