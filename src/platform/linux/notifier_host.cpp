#include "platform/linux/notifier_host.h"

#include <QtDBus/QDBusVariant>

#include "platform/linux/bus_call.h"

namespace morvane::linuxdesktop {

namespace {

const auto service = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto object = QStringLiteral("/StatusNotifierWatcher");

}  // namespace

NotifierHost::NotifierHost(const QDBusConnection& bus)
    : bus_(bus), watcher_(service, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, &NotifierHost::read);
    for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        bus_.connect(QString(), object, service, QString::fromLatin1(signal), this, SLOT(read()));
    }
    read();
}

void NotifierHost::read() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << service << QStringLiteral("IsStatusNotifierHostRegistered");
    callBus(bus_, call, this, [this](const QDBusMessage& reply) {
        const bool answered =
            reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
        take(answered && qvariant_cast<QDBusVariant>(reply.arguments().at(0)).variant().toBool());
    });
}

void NotifierHost::take(bool present) {
    if (present == isPresent_) return;
    isPresent_ = present;
    emit changed();
}

}  // namespace morvane::linuxdesktop
