#pragma once

#include <QObject>
#include <QQmlEngine>

namespace morvane {

// Whether the user is finding the way by keyboard: focus is drawn only then, so that a click leaves
// no ring behind. A key that moves the focus switches it on, a pointer's press off.
class InputMode : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool keyboard READ keyboard NOTIFY keyboardChanged FINAL)

public:
    explicit InputMode(QObject* parent = nullptr);

    [[nodiscard]] bool keyboard() const { return keyboard_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void keyboardChanged();

private:
    void setKeyboard(bool keyboard);

    bool keyboard_ = false;
};

}  // namespace morvane
