#include "platform/linux/notifications.h"

#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <utility>

#include "platform/linux/bus_call.h"

namespace morvane::linuxdesktop {

namespace {

const auto service = QStringLiteral("org.freedesktop.Notifications");
const auto object = QStringLiteral("/org/freedesktop/Notifications");
const auto program = QStringLiteral("Morvane");
const auto icon = QStringLiteral("morvane");
constexpr int untilTheServerTakesItAway = -1;

QDBusMessage serverCall(const QString& method) {
    return QDBusMessage::createMethodCall(service, object, service, method);
}

bool isReply(const QDBusMessage& message) {
    return message.type() == QDBusMessage::ReplyMessage && !message.arguments().isEmpty();
}

}  // namespace

Notifications::Notifications(const QDBusConnection& bus)
    : bus_(bus), server_(service, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    // Numbers are the server's own: those of one that ended may name other programs' next.
    connect(&server_, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { forgetNumbers(); });
    // From whom it comes is not asked: finding that out would wait for the bus.
    bus_.connect(QString(), object, service, QStringLiteral("NotificationClosed"), this,
                 SLOT(closed(unsigned, unsigned)));
}

void Notifications::readStatus(std::function<void(PermissionStatus)> answer) {
    callBus(bus_, serverCall(QStringLiteral("GetCapabilities")), this,
            [answer = std::move(answer)](const QDBusMessage& reply) {
                answer(isReply(reply) ? PermissionStatus::granted : PermissionStatus::denied);
            });
}

void Notifications::post(const std::string& identifier, const std::string& title,
                         const std::string& body) {
    Shown& shown = shown_[identifier];
    shown.next = Text{QString::fromStdString(title), QString::fromStdString(body)};
    if (!shown.isUnderWay) sendNext(identifier);
}

void Notifications::sendNext(const std::string& identifier) {
    shown_[identifier].isUnderWay = true;
    callBus(bus_, serverCall(QStringLiteral("GetCapabilities")), this,
            [this, identifier](const QDBusMessage& reply) {
                Shown& shown = shown_[identifier];
                if (!isReply(reply)) {
                    shown = Shown{};
                    return;
                }
                const QStringList abilities = reply.arguments().at(0).toStringList();
                send(identifier, *std::exchange(shown.next, std::nullopt),
                     abilities.contains(QStringLiteral("body-markup")));
            });
}

void Notifications::send(const std::string& identifier, const Text& text, bool readsMarkup) {
    QDBusMessage call = serverCall(QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), icon},
                            {QStringLiteral("suppress-sound"), true}};
    call << program << shown_[identifier].id << icon << text.title
         << (readsMarkup ? text.body.toHtmlEscaped() : text.body) << QStringList() << hints
         << untilTheServerTakesItAway;
    callBus(bus_, call, this,
            [this, identifier](const QDBusMessage& reply) { sent(identifier, reply); });
}

void Notifications::sent(const std::string& identifier, const QDBusMessage& reply) {
    Shown& shown = shown_[identifier];
    shown.isUnderWay = false;
    shown.id = isReply(reply) ? reply.arguments().at(0).toUInt() : 0;
    if (shown.next) sendNext(identifier);
}

void Notifications::closed(unsigned id, unsigned) {
    for (auto& [identifier, shown] : shown_) {
        if (shown.id == id) shown.id = 0;
    }
}

void Notifications::forgetNumbers() {
    for (auto& [identifier, shown] : shown_) shown.id = 0;
}

}  // namespace morvane::linuxdesktop
