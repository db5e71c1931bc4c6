#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>

namespace morvane::linuxdesktop {

// Whether a tray of the newer kind is there: a panel that has registered with the watcher of status
// notifier items (org.kde.StatusNotifierWatcher, Status Notifier Item specification). Known some
// turns after the start, and followed.
class NotifierHost : public QObject {
    Q_OBJECT

public:
    explicit NotifierHost(const QDBusConnection& bus);

    [[nodiscard]] bool isPresent() const { return isPresent_; }

signals:
    void changed();

private slots:
    void read();

private:
    void take(bool present);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    bool isPresent_ = false;
};

}  // namespace morvane::linuxdesktop
