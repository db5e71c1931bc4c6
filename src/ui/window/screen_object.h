#pragma once

#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <functional>

#include "ui/screens/screen.h"
#include "ui/window/variant_writer.h"

namespace morvane {

// What stands on one screen, for QML: each key of the screen is a property, told as changed only
// where its value differs. QML reads it and presses; it writes nothing.
class ScreenObject : public QQmlPropertyMap {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")

public:
    explicit ScreenObject(screens::Screen& screen, QObject* parent = nullptr);

    // Reads the screen again.
    void refresh();

    // Uses a control, as a press of the user's does; false where it cannot be used now. `row` is
    // the entry of the innermost list, `value` what a choice or a switch takes.
    Q_INVOKABLE bool press(const QString& control, const QString& row = {},
                           const QVariant& value = {});

signals:
    // After a press has done what it does.
    void pressed();
    // A press was made of what cannot be used now.
    void refused();

protected:
    template <class Derived>
    ScreenObject(Derived* derived, screens::Screen& screen, QObject* parent)
        : QQmlPropertyMap(derived, parent), screen_(screen) {}

    // What the screen tells now, its keys at the top.
    [[nodiscard]] virtual QVariantMap read();
    QVariant updateValue(const QString& key, const QVariant& input) override;

private:
    screens::Screen& screen_;
};

}  // namespace morvane
