#pragma once

#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QString>
#include <QStringList>
#include <memory>

#include "ui/theme/theme.h"

namespace morvane {

// A window with one piece of QML in it, and every warning that came while it stood.
class Stage {
public:
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    // Shows this QML, after the imports of the modules. The root, or null with the errors among
    // the warnings.
    QQuickItem* show(const QString& body);
    QQuickItem* showFile(const QString& path);

    [[nodiscard]] Theme& theme() { return Theme::of(*view_.engine()); }
    [[nodiscard]] QQuickView& window() { return view_; }
    [[nodiscard]] QStringList warnings() const;

    // The first item below the root with that objectName.
    [[nodiscard]] QQuickItem* item(const QString& objectName) const;

    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void click(const QQuickItem& item);
    // The objectName of what has the focus.
    [[nodiscard]] QString focused() const;
    // What the window shows, drawn anew.
    QImage picture();

private:
    QQuickItem* take(QObject* object);

    QQuickView view_;
};

}  // namespace morvane
