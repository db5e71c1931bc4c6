#include "platform/linux/bus_call.h"

#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusPendingCallWatcher>

namespace morvane::linuxdesktop {

void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage&)> handOver) {
    const QDBusPendingCall pending = bus.asyncCall(call);
    // Without a bus the call is over at once, and a watcher would never say so.
    if (pending.isFinished()) {
        QMetaObject::invokeMethod(
            context, [handOver = std::move(handOver), reply = pending.reply()] { handOver(reply); },
            Qt::QueuedConnection);
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(pending, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [handOver = std::move(handOver)](QDBusPendingCallWatcher* finished) {
                         const QDBusMessage reply = finished->reply();
                         finished->deleteLater();
                         handOver(reply);
                     });
}

}  // namespace morvane::linuxdesktop
