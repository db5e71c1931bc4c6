#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QVariantMap>
#include <string>

namespace morvane {

// Says where a link would lead that only a Mac can follow. Main thread.
class LinkNote : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")

    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString text READ text CONSTANT FINAL)
    Q_PROPERTY(QString link READ link NOTIFY linkChanged FINAL)
    Q_PROPERTY(QVariantMap close READ close CONSTANT FINAL)

public:
    using QObject::QObject;

    // In place of what was shown before.
    void show(const std::string& link);

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] QString title() const { return QStringLiteral("System Settings"); }
    [[nodiscard]] QString text() const {
        return QStringLiteral("On a Mac, this opens System Settings at:");
    }
    [[nodiscard]] QString link() const { return link_; }
    [[nodiscard]] QVariantMap close() const;

    Q_INVOKABLE void dismiss();

signals:
    void isOpenChanged();
    void linkChanged();
    // It was asked for, also while it is open already.
    void shown();

private:
    bool isOpen_ = false;
    QString link_;
};

}  // namespace morvane
