#include "platform/linux/bus_call.h"

#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusPendingCallWatcher>

namespace morvane::linuxdesktop {

void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage&)> handOver) {
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [handOver = std::move(handOver)](QDBusPendingCallWatcher* finished) {
                         const QDBusMessage reply = finished->reply();
                         finished->deleteLater();
                         handOver(reply);
                     });
}

}  // namespace morvane::linuxdesktop
