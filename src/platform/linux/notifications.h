#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "model/vocabulary.h"

namespace morvane::linuxdesktop {

// Notifications by the desktop's server (Desktop Notifications Specification 1.2,
// org.freedesktop.Notifications). The desktop has no permission of its own to ask for: a server
// that answers shows what it is sent, unless its user told it otherwise.
class Notifications : public QObject {
    Q_OBJECT

public:
    explicit Notifications(const QDBusConnection& bus);

    // `granted` where a server answers, `denied` otherwise; at a later turn.
    void readStatus(std::function<void(PermissionStatus)> answer);

    // Shows it, in place of an earlier one of that identifier that is still on view. Texts are
    // UTF-8 and plain. Where no server is, nothing happens.
    void post(const std::string& identifier, const std::string& title, const std::string& body);

private slots:
    void closed(unsigned id, unsigned reason);

private:
    struct Text {
        QString title;
        QString body;
    };
    // One notification at the server. The server gives it a number with its first answer, so a
    // later text waits for that.
    struct Shown {
        unsigned id = 0;  // 0: the server has none of ours
        bool isUnderWay = false;
        std::optional<Text> next;
    };

    void sendNext(const std::string& identifier);
    void send(const std::string& identifier, const Text& text, bool readsMarkup);
    void sent(const std::string& identifier, const QDBusMessage& reply);
    void forgetNumbers();

    QDBusConnection bus_;
    QDBusServiceWatcher server_;
    std::map<std::string, Shown> shown_;
};

}  // namespace morvane::linuxdesktop
