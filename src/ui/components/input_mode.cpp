#include "ui/components/input_mode.h"

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>

namespace morvane {
namespace {

bool movesFocus(int key) {
    switch (key) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputMode::InputMode(QObject* parent) : QObject(parent) {
    if (qGuiApp != nullptr) qGuiApp->installEventFilter(this);
}

bool InputMode::eventFilter(QObject* watched, QEvent* event) {
    // The same event passes here for its window and for each item; the windows' is enough.
    if (watched->isWindowType()) {
        if (event->type() == QEvent::KeyPress) {
            const auto* const press = dynamic_cast<QKeyEvent*>(event);
            if (press != nullptr && movesFocus(press->key())) setKeyboard(true);
        } else if (event->type() == QEvent::MouseButtonPress ||
                   event->type() == QEvent::TouchBegin) {
            setKeyboard(false);
        }
    }
    return QObject::eventFilter(watched, event);
}

void InputMode::setKeyboard(bool keyboard) {
    if (keyboard == keyboard_) return;
    keyboard_ = keyboard;
    emit keyboardChanged();
}

}  // namespace morvane
