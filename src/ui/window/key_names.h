#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QVariant>

namespace morvane {

// The keys of commands and buttons in the toolkit's spelling, whose "Ctrl" is Command on a Mac.
class KeyNames : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    // Empty where there is no key.
    Q_INVOKABLE [[nodiscard]] QString sequence(const QVariant& key) const {
        return key.toString().replace(QLatin1String("Command+"), QLatin1String("Ctrl+"));
    }
};

}  // namespace morvane
