#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <functional>

class QObject;

namespace morvane::linuxdesktop {

// Sends `call` and hands over its reply at a later turn: an error too, also where there is no bus.
// The main thread does not wait. Once `context` is gone, nothing is handed over.
void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage&)> handOver);

}  // namespace morvane::linuxdesktop
