#include "app/window_memory.h"

#include <QGuiApplication>
#include <QScreen>
#include <chrono>

#include "app/window_place.h"

namespace morvane {

namespace {

constexpr const char* placeKey = "mainWindowFrame";

}  // namespace

WindowMemory::WindowMemory(QWindow& window, Defaults& defaults)
    : window_(window), defaults_(defaults) {
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.append(screen->availableGeometry());
    }
    const auto kept = defaults.text(placeKey);
    window.setGeometry(windowPlace(kept ? readWindowPlace(*kept) : std::nullopt, screens));
    calm_.setSingleShot(true);
    calm_.setInterval(std::chrono::milliseconds(400));
    connect(&calm_, &QTimer::timeout, this, &WindowMemory::keep);
    for (const auto moved : {&QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged,
                             &QWindow::heightChanged}) {
        connect(&window, moved, this, &WindowMemory::changed);
    }
}

WindowMemory::~WindowMemory() {
    if (calm_.isActive()) keep();
}

void WindowMemory::changed() {
    if (window_.isVisible()) calm_.start();
}

void WindowMemory::keep() {
    calm_.stop();
    if (window_.visibility() != QWindow::Windowed) return;
    const std::string text = windowPlaceText(window_.geometry());
    if (defaults_.text(placeKey) != text) defaults_.setText(placeKey, text);
}

}  // namespace morvane
