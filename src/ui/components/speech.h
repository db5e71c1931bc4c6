#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace morvane {

// The text as one line shows it: a line break, a tab or another control character of a name is a
// visible blank, "␣", so that the name stays on its line and in its place, and nobody mistakes it
// for a name without it. With `keepsLines` line breaks stay.
[[nodiscard]] QString shownText(const QString& text, bool keepsLines);

// Whether a character of the text has more marks over or under it than any language sets, so that
// they may stand higher than a line.
[[nodiscard]] bool pilesUp(const QString& text);

// What the controls tell an assistive client, and how they show a text that came from outside.
class Speech : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // The description of every control that cannot be used now, and of nothing else. The toolkit
    // passes the enabled state on to nobody.
    Q_PROPERTY(QString unavailable READ unavailable CONSTANT FINAL)
    // What is said of a row that shows more of itself.
    Q_PROPERTY(QString expanded READ expanded CONSTANT FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] QString unavailable() const { return QStringLiteral("unavailable"); }
    [[nodiscard]] QString expanded() const { return QStringLiteral("expanded"); }

    // See `shownText`.
    [[nodiscard]] Q_INVOKABLE QString shown(const QString& text, bool keepsLines) const;

    [[nodiscard]] Q_INVOKABLE bool piles(const QString& text) const { return pilesUp(text); }

    // A fraction of 0 to 1 as a whole per cent, "40%".
    [[nodiscard]] Q_INVOKABLE QString percent(double fraction) const;
};

}  // namespace morvane
